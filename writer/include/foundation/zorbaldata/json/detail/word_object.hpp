// The objects that carry one word under zqdata: special floats and missing strings.
#pragma once

#include <frontend/detail/notation_keys.hpp>

namespace foundation::zorbaldata::json::detail {

/// Writes the JSON object {"zqdata": word} to out: "NaN", "Inf" or "-Inf" for a special float, "missing"
/// for a missing string.
template <typename Out>
void write_word_object(Out& out, char const* word)
{
    out.begin_sorted_object();
    out.key(zorbaljson::detail::zqdata_key);
    out.string(word);
    out.end_object();
}

} // namespace foundation::zorbaldata::json::detail
