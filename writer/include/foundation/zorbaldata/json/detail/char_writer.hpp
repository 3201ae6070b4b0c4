// The writer of char arrays: all their code units as one JSON string.
#pragma once

#include <foundation/zorbaldata/json/detail/dimensions.hpp>
#include <foundation/zorbaldata/json/detail/json_types.hpp>
#include <foundation/zorbaldata/json/detail/utf16_to_utf8.hpp>
#include <foundation/zorbaldata/json/to_json_modes.hpp>

#include <string>
#include <string_view>
#include <utility>

namespace foundation::zorbaldata::json::detail {

/// The large form of a char array of the dimensions whose code units are text, already UTF-8: zqdata
/// holds exactly one string, whatever the size, with no count check.
/// @throws std::runtime_error "Must have at least two dimensions" for fewer than two dimensions.
JsonValue write_char_large(Dimensions const& dimensions, std::string text);

/// A char array of the dimensions whose code units, in storage order, are units. Under
/// ToJsonMode::Small a 1-by-N row (N at least 1) and the 0-by-0 array are a bare JSON string; every
/// other array takes the large form.
/// @throws as utf16_to_utf8, before anything else; then as write_char_large.
template <zorbaljson::ToJsonMode Mode>
JsonValue write_char(Dimensions const& dimensions, std::u16string_view units)
{
    std::string text = utf16_to_utf8(units);
    if constexpr (Mode == zorbaljson::ToJsonMode::Small) {
        require_two_dimensions(dimensions);
        // 1-by-0 is no row: it keeps the large form, which tells its size.
        if (dimensions.size() == 2
            && ((dimensions[0] == 1 && dimensions[1] != 0) || (dimensions[0] == 0 && dimensions[1] == 0)))
            return JsonValue(std::move(text));
    }
    return write_char_large(dimensions, std::move(text));
}

} // namespace foundation::zorbaldata::json::detail
