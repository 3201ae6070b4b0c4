// Marks the declarations that the JSON value library exports from its shared object.
#pragma once

#define FOUNDATION_JSON_API __attribute__((visibility("default")))
