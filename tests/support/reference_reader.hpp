// A reader of JSON text that builds the tree of values directly, kept by the tests as an oracle for the
// library's reader, which reads onto a tape first: both must give the same results, codes and positions.
#pragma once

#include <foundation/json/parse_result.hpp>
#include <foundation/json/parser.hpp>
#include <foundation/json/value.hpp>

#include <cstddef>
#include <memory>
#include <string>

namespace zq::test::reference {

using namespace foundation::json;

/// How the value of "zqdata" is read.
enum class IntegerKind : unsigned char { none, signed_integer, unsigned_integer };

/// The kind that a "zqtype" name asks for: none unless it is one of the eight integer types.
IntegerKind integer_kind(std::string const& type) noexcept;

/// Reads JSON from bytes that end at end_. With Build false it only checks, with the same result
/// codes and positions as when building, and leaves every out argument alone: that is how the
/// value of "zqdata" is read the first time, while its "zqtype" may still come.
/// depth counts the arrays and objects open around the value read.
template <bool Build>
class Reader {
public:
    Reader(char const* end, unsigned flags) noexcept : end_(end), flags_(flags) {}

    /// Any value, told apart by its first byte.
    ParseResult value(Value& out, char const*& p, unsigned depth);
    /// An array, its elements appended to out, which the caller passes empty.
    ParseResult array(Array& out, char const*& p, unsigned depth);
    /// An object; out is replaced only on success.
    ParseResult object(Object& out, char const*& p, unsigned depth);
    /// The value of "zqdata" under kind.
    ParseResult typed_data(IntegerKind kind, Value& out, char const*& p, unsigned depth);
    /// A flat array of long long or unsigned long long; out is replaced only on success.
    template <typename Integer>
    ParseResult integer_array(Array& out, char const*& p, unsigned depth);

    /// The number of elements of the array that closed last, which is the outermost one when an
    /// array value has just been read.
    std::size_t last_array_size() const noexcept { return last_array_size_; }

private:
    struct TypedData;

    ParseResult object_value(Value& out, char const*& p, unsigned depth);
    ParseResult array_value(Value& out, char const*& p, unsigned depth);
    ParseResult data_member(TypedData& typed, Object& entries, Value& member, char const*& p, unsigned depth);
    ParseResult type_member(TypedData& typed, Object& entries, Value& member, char const*& p, unsigned depth);
    ParseResult read_data_again(TypedData& typed, Object& entries, unsigned depth);
    ParseResult read_deferred_data(TypedData const& typed, Object& entries, char const*& p, unsigned depth);
    ParseResult open(char const*& p, char opener, ParseResult not_opened, unsigned depth);
    void skip(char const*& p) const noexcept;

    char const* end_;
    unsigned flags_;
    // The element count that the next array opened is known to have, from an earlier reading of the
    // same bytes; 0 when unknown.
    std::size_t size_hint_ = 0;
    std::size_t last_array_size_ = 0;
    // What the checking reader passes where a value would go; it is never written.
    Value unused_;
};

extern template class Reader<true>;
extern template class Reader<false>;

} // namespace zq::test::reference

namespace zq::test::reference {

/// parse_value's result, by the reference reader.
inline foundation::json::ParseResult parse_value(foundation::json::Value& out, foundation::json::TextPosition& position,
    foundation::json::TextPosition const& end, unsigned flags)
{
    char const* const first = std::to_address(position);
    char const* p = first;
    foundation::json::ParseResult const result = Reader<true>(first + (end - position), flags).value(out, p, 0);
    position += p - first;
    return result;
}

} // namespace zq::test::reference
