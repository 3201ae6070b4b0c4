// The failures of the text converters.
#include <yx/i18n/cvt_exception.hpp>

#include <utility>

namespace yx::i18n {

CvtExceptionBase::CvtExceptionBase(std::string message) : message_(std::move(message)) {}

// Every destructor is defined here, out of line, so that each class has a single vtable and type
// identity in this library, and callers in other shared objects catch it by class.
CvtExceptionBase::~CvtExceptionBase() = default;

char const* CvtExceptionBase::what() const noexcept
{
    return message_.c_str();
}

namespace {

std::string invalid_character_message(CvtInvalidCharacter::Input input, std::size_t offset)
{
    std::string const where = std::to_string(offset);
    return input == CvtInvalidCharacter::Input::utf8 ? "Invalid UTF-8 byte sequence at byte offset " + where
                                                     : "Invalid UTF-16 code unit at offset " + where;
}

} // namespace

CvtInvalidCharacter::CvtInvalidCharacter(Input input, std::size_t offset)
    : CvtExceptionBase(invalid_character_message(input, offset)), offset_(offset)
{
}

CvtInvalidCharacter::~CvtInvalidCharacter() = default;

CvtUnsupportedEncoding::CvtUnsupportedEncoding(std::string const& name)
    : CvtExceptionBase("Unsupported encoding: " + name)
{
}

CvtUnsupportedEncoding::~CvtUnsupportedEncoding() = default;

} // namespace yx::i18n
