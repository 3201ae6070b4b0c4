// The writer of char arrays: all their code units as one JSON string.
#pragma once

#include <foundation/zorbaldata/json/detail/dimensions.hpp>
#include <foundation/zorbaldata/json/detail/large_form.hpp>
#include <foundation/zorbaldata/json/to_json_modes.hpp>

#include <string>
#include <string_view>

namespace foundation::zorbaldata::json::detail {

/// Writes a char array of the dimensions whose code units, in storage order, are units. Under
/// ToJsonMode::Small a 1-by-N row (N at least 1) and the 0-by-0 array are a bare JSON string; every
/// other array takes the large form, whose zqdata holds exactly one string, whatever the size, with no
/// count check.
/// @throws what preparing the text for the output throws, before anything else; std::runtime_error
/// "Must have at least two dimensions" for fewer than two dimensions.
template <zorbaljson::ToJsonMode Mode, typename Out>
void write_char(Out& out, Dimensions const& dimensions, std::u16string_view units)
{
    auto const text = Out::prepared(units);
    if constexpr (Mode == zorbaljson::ToJsonMode::Small) {
        require_two_dimensions(dimensions);
        // 1-by-0 is no row: it keeps the large form, which tells its size.
        if (dimensions.size() == 2
            && ((dimensions[0] == 1 && dimensions[1] != 0) || (dimensions[0] == 0 && dimensions[1] == 0)))
            return out.string(text);
    }
    write_large_form(out, dimensions, "char", {}, [&] {
        out.begin_array();
        out.string(text);
        out.end_array();
    });
}

} // namespace foundation::zorbaldata::json::detail
