// The syntax error of JSON text: where reading stopped, as line, column and an excerpt with a caret.
#pragma once

#include <foundation/json/parse_result.hpp>
#include <foundation/zorbaldata/json/export.hpp>

#include <memory>
#include <stdexcept>
#include <string>

namespace foundation::json {

/// JSON text that the reader refused, or a complete value followed by more text ("Parse incomplete",
/// code 0). All counts are in bytes, and only byte 10 ends a line. what() has three lines, the last
/// without a line end:
///
///     JSON ParserException (E0008): <description> (Line 2, Column 2)
///     <tab><excerpt>
///     <tab><caret_offset spaces>^
///
/// The excerpt runs from at most 80 bytes before the position (never before its line) to at most
/// 80 bytes after it, stopping before a line end, and is printed as it is.
class FOUNDATION_ZORBALDATA_JSON_API ParserException : public std::runtime_error {
public:
    /// The failure at position in the text [begin, end), with its code and the code's description.
    /// @throws std::bad_alloc
    ParserException(std::string::const_iterator begin, std::string::const_iterator position,
                    std::string::const_iterator end, ParseResult code, std::string const& description);
    ~ParserException() override;

    /// What went wrong; ParseOk (0) when a value was complete but text was left after it.
    ParseResult code() const noexcept { return code_; }
    /// Bytes from the start of the text to the position.
    unsigned long offset() const noexcept { return offset_; }
    /// The line of the position, from 1.
    unsigned long line() const noexcept { return line_; }
    /// Bytes from the start of that line to the position, from 0.
    unsigned long column() const noexcept { return column_; }
    /// Where the caret stands under the excerpt: the smaller of column and 80.
    unsigned long caret_offset() const noexcept { return caret_offset_; }
    /// The text around the position, as the message shows it.
    std::string const& excerpt() const noexcept { return *excerpt_; }

private:
    struct Place;
    ParserException(Place const& place, ParseResult code, std::string const& description);

    ParseResult code_;
    unsigned long offset_;
    unsigned long line_;
    unsigned long column_;
    unsigned long caret_offset_;
    // Shared, so that copying the exception cannot fail.
    std::shared_ptr<std::string const> excerpt_;
};

} // namespace foundation::json
