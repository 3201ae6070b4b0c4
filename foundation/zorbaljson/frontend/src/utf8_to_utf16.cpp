// The conversion of JSON strings to UTF-16.
#include <frontend/detail/utf8_to_utf16.hpp>

#include <yx/i18n/codecvt.hpp>

namespace foundation::zorbaljson::detail {

std::u16string utf8_to_utf16(std::string_view text)
{
    // The converter keeps no state between calls, so one serves every string of every conversion.
    static yx::i18n::codecvt_string_to_ustring const converter("UTF-8", true);
    if (text.empty())
        return {};
    return converter.convert(text.data(), text.size());
}

} // namespace foundation::zorbaljson::detail
