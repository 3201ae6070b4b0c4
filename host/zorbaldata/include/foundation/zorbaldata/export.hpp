// Marks the declarations that the array library exports from its shared object.
#pragma once

#define FOUNDATION_ZORBALDATA_API __attribute__((visibility("default")))
