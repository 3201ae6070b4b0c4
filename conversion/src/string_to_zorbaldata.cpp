// The entry from JSON text to an array: read the whole text onto a tape, refuse what is left, then convert.
#include <foundation/zorbaldata/json/string_to_zorbaldata.hpp>

#include <foundation/json/detail/tape.hpp>
#include <foundation/json/parse_result.hpp>
#include <foundation/json/parser.hpp>
#include <foundation/json/parser_exception.hpp>
#include <foundation/zorbaldata/json/detail/convert_document.hpp>

namespace foundation::zorbaldata::json {

Array string_to_zorbaldata(std::string const& text, ArrayFactory& factory)
{
    return string_to_zorbaldata(text, text.begin(), text.end(), factory);
}

Array string_to_zorbaldata(std::string const& text, std::string::const_iterator begin, std::string::const_iterator end,
                           ArrayFactory& factory)
{
    namespace fj = foundation::json;
    // The whole value is read and checked before any array is made, so a syntax error wins over every
    // failure of the notation.
    fj::detail::Tape tape;
    char const* const first = text.data() + (begin - text.begin());
    char const* const last = text.data() + (end - text.begin());
    char const* p = first;
    fj::ParseResult const result = fj::detail::read_tape(tape, p, last, 0);
    fj::TextPosition const position = begin + (p - first);
    if (result != fj::ParseOk)
        throw fj::ParserException(text.begin(), position, text.end(), result, fj::get_parse_result_description(result));
    if (p != last)
        throw fj::ParserException(text.begin(), position, text.end(), fj::ParseOk, "Parse incomplete");
    return detail::convert_document(foundation::zorbaljson::detail::JsonNode(tape, 0), factory);
}

} // namespace foundation::zorbaldata::json
