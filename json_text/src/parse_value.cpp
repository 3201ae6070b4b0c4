// The entry of the reader and its structural steps, on positions into a string.
#include "byte_range.hpp"
#include "reader.hpp"

#include <foundation/json/detail/parser_steps.hpp>
#include <foundation/json/parser.hpp>

namespace foundation::json {

using detail::IntegerKind;
using detail::on_bytes;
using detail::Reader;

ParseResult parse_value(Value& out, TextPosition& position, TextPosition const& end, unsigned flags)
{
    return on_bytes(position, end, [&](char const*& p, char const* last) {
        return Reader<true>(last, flags).value(out, p, 0);
    });
}

ParseResult parse_object(Object& out, TextPosition& position, TextPosition const& end, unsigned flags)
{
    return on_bytes(position, end, [&](char const*& p, char const* last) {
        return Reader<true>(last, flags).object(out, p, 0);
    });
}

ParseResult parse_array(Array& out, TextPosition& position, TextPosition const& end, unsigned flags)
{
    Array elements;
    ParseResult const result = on_bytes(position, end, [&](char const*& p, char const* last) {
        return Reader<true>(last, flags).array(elements, p, 0);
    });
    if (result == ParseOk)
        out.swap(elements);
    return result;
}

ParseResult parse_typed_data(std::string const& type, Value& out, TextPosition& position, TextPosition const& end,
                             unsigned flags)
{
    return on_bytes(position, end, [&](char const*& p, char const* last) {
        return Reader<true>(last, flags).typed_data(detail::integer_kind(type), out, p, 0);
    });
}

ParseResult parse_int_array(Array& out, TextPosition& position, TextPosition const& end, unsigned flags)
{
    return on_bytes(position, end, [&](char const*& p, char const* last) {
        return Reader<true>(last, flags).integer_array<long long>(out, p, 0);
    });
}

ParseResult parse_uint_array(Array& out, TextPosition& position, TextPosition const& end, unsigned flags)
{
    return on_bytes(position, end, [&](char const*& p, char const* last) {
        return Reader<true>(last, flags).integer_array<unsigned long long>(out, p, 0);
    });
}

} // namespace foundation::json
