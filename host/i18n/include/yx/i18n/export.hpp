// Marks the declarations that the text conversion library exports from its shared object.
#pragma once

#define YX_I18N_API __attribute__((visibility("default")))
