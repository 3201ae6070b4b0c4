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
    // Three bytes a unit at most: a pair takes four for two.
    text.resize(static_cast<std::size_t>(count) * 3);
    char* out = text.data();
    for (char16_t const *in = units, *const end = units + count; in != end;)
        in = encode_utf8(in, end, out);
    text.resize(static_cast<std::size_t>(out - text.data()));
    return text;
}

} // namespace foundation::json::detail
