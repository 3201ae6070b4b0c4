// Marks the declarations that the conversion library exports from its shared object.
#pragma once

#define FOUNDATION_ZORBALDATA_JSON_API __attribute__((visibility("default")))
