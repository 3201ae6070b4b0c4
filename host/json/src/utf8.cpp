// Building UTF-8 strings from byte ranges and from UTF-16 code units.
#include <foundation/json/detail/utf8.hpp>

namespace foundation::json::detail {

std::string get_utf8_string(std::string::const_iterator first, std::string::const_iterator last)
{
    return std::string(first, last);
}

std::string u16_to_u8(char16_t const* units, int count)
{
    std::string text;
    if (count <= 0)
        return text;
    text.reserve(static_cast<std::size_t>(count) * 3);
    auto const put = [&text](unsigned byte) { text.push_back(static_cast<char>(byte)); };
    for (int i = 0; i < count; ++i) {
        char32_t const unit = units[i];
        if (unit < 0x80) {
            put(unit);
        } else if (unit < 0x800) {
            put(0xC0 | (unit >> 6));
            put(0x80 | (unit & 0x3F));
        } else if (unit >= 0xD800 && unit < 0xDC00 && i + 1 < count && units[i + 1] >= 0xDC00 &&
                   units[i + 1] < 0xE000) {
            char32_t const code_point = 0x10000 + ((unit - 0xD800) << 10) + (units[i + 1] - 0xDC00);
            ++i;
            put(0xF0 | (code_point >> 18));
            put(0x80 | ((code_point >> 12) & 0x3F));
            put(0x80 | ((code_point >> 6) & 0x3F));
            put(0x80 | (code_point & 0x3F));
        } else {
            // Unpaired surrogates too: their three-byte form keeps them distinct and reversible.
            put(0xE0 | (unit >> 12));
            put(0x80 | ((unit >> 6) & 0x3F));
            put(0x80 | (unit & 0x3F));
        }
    }
    return text;
}

} // namespace foundation::json::detail
