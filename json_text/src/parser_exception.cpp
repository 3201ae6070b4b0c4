// Locating a syntax error in the text and composing its three-line message.
#include <foundation/json/parser_exception.hpp>

#include <algorithm>
#include <memory>
#include <string_view>
#include <type_traits>

namespace foundation::json {

static_assert(std::is_nothrow_copy_constructible_v<ParserException>);

namespace {

// How far the excerpt reaches on either side of the position.
constexpr unsigned long excerpt_reach = 80;

} // namespace

struct ParserException::Place {
    unsigned long offset;
    unsigned long line;
    unsigned long column;
    unsigned long caret_offset;
    std::string excerpt;

    Place(std::string::const_iterator begin, std::string::const_iterator position, std::string::const_iterator end)
    {
        std::string_view const before(std::to_address(begin), static_cast<std::size_t>(position - begin));
        std::string_view const after(std::to_address(position), static_cast<std::size_t>(end - position));
        offset = before.size();
        line = static_cast<unsigned long>(std::count(before.begin(), before.end(), '\n')) + 1;
        std::size_t const last_line_end = before.rfind('\n');
        column = last_line_end == std::string_view::npos ? offset : offset - last_line_end - 1;
        caret_offset = std::min(column, excerpt_reach);
        std::string_view const ahead = after.substr(0, std::min<std::size_t>(after.size(), excerpt_reach));
        excerpt.assign(before.substr(before.size() - caret_offset));
        excerpt.append(ahead.substr(0, ahead.find('\n')));
    }
};

namespace {

std::string compose(ParseResult code, std::string const& description, unsigned long line, unsigned long column,
                    std::string const& excerpt, unsigned long caret_offset)
{
    std::string const number = std::to_string(static_cast<int>(code));
    std::string message = "JSON ParserException (E";
    message.append(number.size() < 4 ? 4 - number.size() : 0, '0');
    message += number;
    message += "): ";
    message += description;
    message += " (Line ";
    message += std::to_string(line);
    message += ", Column ";
    message += std::to_string(column);
    message += ")\n\t";
    message += excerpt;
    message += "\n\t";
    message.append(caret_offset, ' ');
    message += '^';
    return message;
}

} // namespace

ParserException::ParserException(std::string::const_iterator begin, std::string::const_iterator position,
                                 std::string::const_iterator end, ParseResult code, std::string const& description)
    : ParserException(Place(begin, position, end), code, description)
{
}

ParserException::ParserException(Place const& place, ParseResult code, std::string const& description)
    : std::runtime_error(compose(code, description, place.line, place.column, place.excerpt, place.caret_offset))
    , code_(code)
    , offset_(place.offset)
    , line_(place.line)
    , column_(place.column)
    , caret_offset_(place.caret_offset)
    , excerpt_(std::make_shared<std::string const>(place.excerpt))
{
}

ParserException::~ParserException() = default;

} // namespace foundation::json
