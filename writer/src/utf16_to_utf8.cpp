// The conversion of the text of char and string arrays to UTF-8.
#include <foundation/zorbaldata/json/detail/utf16_to_utf8.hpp>

#include <yx/i18n/codecvt.hpp>
#include <yx/i18n/cvt_exception.hpp>

#include <stdexcept>

namespace foundation::zorbaldata::json::detail {

namespace {

std::string convert(std::u16string_view units, bool allow_surrogates)
{
    // The converters keep no state between calls, so one of each serves every text of every conversion.
    static yx::i18n::codecvt_ustring_to_string const strict("UTF-8", false);
    static yx::i18n::codecvt_ustring_to_string const lenient("UTF-8", true);
    if (units.empty())
        return {};
    return (allow_surrogates ? lenient : strict).convert(units.data(), units.size());
}

} // namespace

std::string utf16_to_utf8(std::u16string_view units)
{
    try {
        return convert(units, false);
    } catch (yx::i18n::CvtInvalidCharacter const&) {
        // Lone surrogates: converted again below, outside the handler, so that what the second attempt
        // throws leaves as it is.
    } catch (...) {
        throw std::runtime_error("Invalid characters in char array. Could not convert into UTF-8.");
    }
    return convert(units, true);
}

} // namespace foundation::zorbaldata::json::detail
