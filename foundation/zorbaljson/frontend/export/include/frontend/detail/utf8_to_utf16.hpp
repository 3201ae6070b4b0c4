// JSON strings hold UTF-8 and arrays hold UTF-16: the one conversion on the way in.
#pragma once

#include <string>
#include <string_view>

namespace foundation::zorbaljson::detail {

/// The UTF-16 code units of a JSON string. Surrogate code points written in three bytes are taken
/// as single units, so text that left a char array with a lone surrogate comes back unchanged.
/// @throws yx::i18n::CvtInvalidCharacter for bytes that are not UTF-8.
std::u16string utf8_to_utf16(std::string_view text);

/// The same code units written over out, whose room is kept for the next text.
/// @throws yx::i18n::CvtInvalidCharacter for bytes that are not UTF-8.
void utf8_to_utf16(std::string_view text, std::u16string& out);

} // namespace foundation::zorbaljson::detail
