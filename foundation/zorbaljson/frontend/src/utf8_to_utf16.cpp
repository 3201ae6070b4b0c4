// The conversion of JSON strings to UTF-16.
#include <frontend/detail/utf8_to_utf16.hpp>

#include <yx/i18n/codecvt.hpp>

namespace foundation::zorbaljson::detail {

namespace {

// The converter keeps no state between calls, so one serves every string of every conversion.
yx::i18n::codecvt_string_to_ustring const& converter()
{
    static yx::i18n::codecvt_string_to_ustring const instance("UTF-8", true);
    return instance;
}

} // namespace

std::u16string utf8_to_utf16(std::string_view text)
{
    std::u16string out;
    utf8_to_utf16(text, out);
    return out;
}

void utf8_to_utf16(std::string_view text, std::u16string& out)
{
    converter().convert_into(text.data(), text.size(), out);
}

} // namespace foundation::zorbaljson::detail
