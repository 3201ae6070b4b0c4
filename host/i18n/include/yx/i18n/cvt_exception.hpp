// The failures that the text converters throw.
#pragma once

#include <yx/i18n/export.hpp>

#include <cstddef>
#include <exception>
#include <string>

namespace yx::i18n {

/// Base of every failure of the text converters; catch it to handle them all alike.
class YX_I18N_API CvtExceptionBase : public std::exception {
public:
    ~CvtExceptionBase() override;

    /// The message given at construction.
    char const* what() const noexcept override;

protected:
    /// Keeps message as the text that what() returns.
    explicit CvtExceptionBase(std::string message);

private:
    std::string message_;
};

/// A byte or code unit that the converter cannot take.
class YX_I18N_API CvtInvalidCharacter : public CvtExceptionBase {
public:
    /// The encoding of the input, which sets both the unit of the offset and the message.
    enum class Input { utf8, utf16 };

    /// The failure at offset units into input of the given encoding (bytes for UTF-8, code units for UTF-16).
    CvtInvalidCharacter(Input input, std::size_t offset);
    ~CvtInvalidCharacter() override;

    /// Where the refused unit (or the ill-formed sequence it starts) lies, counted in input units.
    std::size_t offset() const noexcept { return offset_; }

private:
    std::size_t offset_;
};

/// An encoding name that the converters do not know.
class YX_I18N_API CvtUnsupportedEncoding : public CvtExceptionBase {
public:
    /// The failure for the encoding called name.
    explicit CvtUnsupportedEncoding(std::string const& name);
    ~CvtUnsupportedEncoding() override;
};

} // namespace yx::i18n
