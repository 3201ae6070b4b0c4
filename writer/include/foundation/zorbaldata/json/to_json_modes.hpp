// The two settings of the writers that shape the JSON: which form, and how non-finite numbers look.
#pragma once

#include <cstdint>

namespace foundation::zorbaljson {

/// Which forms the writers use. The values are fixed; a caller may pass any 32-bit value, and one that
/// is no enumerator selects no writer.
enum class ToJsonMode : std::int32_t {
    /// Every array, at every depth, in the large form {"zqdata":...,"zqsize":...,"zqtype":...}.
    Large = 0,
    /// Double, logical, char and struct arrays in their small forms where their size allows.
    Small = 1,
};

/// How a NaN or an infinity appears in the zqdata of a large form. The small forms always use the
/// object. The values are fixed; a caller may pass any 32-bit value, and one that is no enumerator
/// selects no writer.
enum class NanType : std::int32_t {
    /// The plain string "NaN", "Inf" or "-Inf".
    String = 0,
    /// The special-float object {"zqdata":"NaN"}, {"zqdata":"Inf"} or {"zqdata":"-Inf"}.
    Object = 1,
};

} // namespace foundation::zorbaljson
