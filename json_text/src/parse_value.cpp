// The entry of the reader and its structural steps, on positions into a string: each reads the text onto
// a tape and builds the tree of what it read.
#include "byte_range.hpp"

#include <foundation/json/detail/parser_steps.hpp>
#include <foundation/json/detail/tape.hpp>
#include <foundation/json/json_cast.hpp>
#include <foundation/json/parser.hpp>

#include <utility>

namespace foundation::json {

namespace {

using detail::TapeStart;

// The tree is built only on success; on failure out is left alone.
template <typename Store>
ParseResult read_tree(TextPosition& position, TextPosition const& end, unsigned flags, TapeStart start, Store store)
{
    detail::Tape tape;
    ParseResult const result = detail::on_bytes(position, end, [&](char const*& p, char const* last) {
        return detail::read_tape(tape, p, last, flags, start);
    });
    if (result == ParseOk)
        store(detail::tape_to_value(tape, 0));
    return result;
}

template <typename Container>
auto swap_into(Container& out)
{
    return [&out](Value value) { out.swap(json_cast<Container>(value)); };
}

} // namespace

ParseResult parse_value(Value& out, TextPosition& position, TextPosition const& end, unsigned flags)
{
    return read_tree(position, end, flags, TapeStart::value, [&out](Value value) { out = std::move(value); });
}

ParseResult parse_object(Object& out, TextPosition& position, TextPosition const& end, unsigned flags)
{
    return read_tree(position, end, flags, TapeStart::object, swap_into(out));
}

ParseResult parse_array(Array& out, TextPosition& position, TextPosition const& end, unsigned flags)
{
    return read_tree(position, end, flags, TapeStart::array, swap_into(out));
}

ParseResult parse_typed_data(std::string const& type, Value& out, TextPosition& position, TextPosition const& end,
                             unsigned flags)
{
    TapeStart const start = is_signed_type(type) ? TapeStart::signed_integers
        : is_unsigned_type(type)                 ? TapeStart::unsigned_integers
                                                 : TapeStart::value;
    return read_tree(position, end, flags, start, [&out](Value value) { out = std::move(value); });
}

ParseResult parse_int_array(Array& out, TextPosition& position, TextPosition const& end, unsigned flags)
{
    return read_tree(position, end, flags, TapeStart::signed_integers, swap_into(out));
}

ParseResult parse_uint_array(Array& out, TextPosition& position, TextPosition const& end, unsigned flags)
{
    return read_tree(position, end, flags, TapeStart::unsigned_integers, swap_into(out));
}

} // namespace foundation::json
