// The entry from JSON text to an array: read the value, refuse what is left, then convert.
#include <foundation/zorbaldata/json/string_to_zorbaldata.hpp>

#include <foundation/json/parse_result.hpp>
#include <foundation/json/parser.hpp>
#include <foundation/json/parser_exception.hpp>
#include <foundation/json/value.hpp>
#include <foundation/zorbaldata/json/json_to_zorbaldata.hpp>

namespace foundation::zorbaldata::json {

Array string_to_zorbaldata(std::string const& text, ArrayFactory& factory)
{
    namespace fj = foundation::json;
    fj::Value value;
    fj::TextPosition position = text.begin();
    fj::TextPosition const end = text.end();
    fj::ParseResult const result = fj::parse_value(value, position, end, 0);
    if (result != fj::ParseOk)
        throw fj::ParserException(text.begin(), position, end, result, fj::get_parse_result_description(result));
    if (position != end)
        throw fj::ParserException(text.begin(), position, end, fj::ParseOk, "Parse incomplete");
    return json_to_zorbaldata(value, factory);
}

} // namespace foundation::zorbaldata::json
