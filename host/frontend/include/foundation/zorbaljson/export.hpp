// Marks the declarations that the notation frontend support library exports from its shared object.
#pragma once

#define FOUNDATION_ZORBALJSON_FRONTEND_API __attribute__((visibility("default")))
