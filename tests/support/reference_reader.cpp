// The reference reader of JSON text: values, arrays and objects built as they are read, with the typed
// reading of "zqdata".
#include "reference_reader.hpp"

#include "byte_classes.hpp"
#include "number_reader.hpp"
#include "string_reader.hpp"
#include "whitespace.hpp"

#include <foundation/json/detail/parser_steps.hpp>
#include <foundation/json/detail/string_to_double.hpp>
#include <foundation/json/nesting_limit.hpp>

#include <cassert>
#include <utility>

namespace zq::test::reference {

using namespace foundation::json::detail;

namespace {

char const data_key[] = "zqdata";
char const type_key[] = "zqtype";

bool breaks_integer(char c) noexcept
{
    return c == '"' || c == '.' || c == 'e' || c == 'E' || c == '{';
}

// The leaves of a tree are read out of line, so that the frames of the recursion through arrays and
// objects stay small.
template <bool Build>
[[gnu::noinline]] ParseResult string_value(Value& out, char const*& p, char const* end)
{
    std::string text;
    ParseResult const result = read_string<Build>(text, p, end);
    if constexpr (Build)
        if (result == ParseOk)
            out = Value(std::move(text));
    return result;
}

[[gnu::noinline]] ParseResult number_value(Value& out, char const*& p, char const* end)
{
    char const* const start = p;
    ParseResult const result = scan_number_bytes(p, end);
    if (result == ParseOk)
        out = Value(string_to_double(start, p));
    return result;
}

template <bool Build>
[[gnu::noinline]] ParseResult literal_value(Value& out, char const*& p, char const* end)
{
    std::string_view const word = *p == 't' ? "true" : *p == 'f' ? "false" : "null";
    if (!starts_with(p, end, word))
        return ExpectedQuote;
    if constexpr (Build)
        out = *p == 'n' ? Value(Null{}) : Value(*p == 't');
    p += word.size();
    return ParseOk;
}

// Growing a container is kept out of the frames of the recursion, which would otherwise hold its
// temporaries at every level.
[[gnu::noinline]] Value& append(Array& elements)
{
    return elements.emplace_back();
}

// The first of two equal keys wins; the hint makes sorted keys cost no search.
[[gnu::noinline]] void insert(Object& entries, std::string& key, Value& member)
{
    entries.try_emplace(entries.end(), std::move(key), std::move(member));
}

} // namespace

IntegerKind integer_kind(std::string const& type) noexcept
{
    if (is_signed_type(type))
        return IntegerKind::signed_integer;
    if (is_unsigned_type(type))
        return IntegerKind::unsigned_integer;
    return IntegerKind::none;
}

// The typed-data bookkeeping of one object.
template <bool Build>
struct Reader<Build>::TypedData {
    IntegerKind kind = IntegerKind::none;
    // Set by every "zqdata", cleared when the integer reading that a "zqtype" asks for succeeds.
    bool data_pending = false;
    // A "zqtype" was read: from then on an untyped "zqdata" is built at once.
    bool type_seen = false;
    // Where the value of the latest "zqdata" starts, and its element count when it is an array.
    char const* data_start = nullptr;
    std::size_t data_size = 0;
    // While building: the bytes whose untyped reading the entry "zqdata" still waits for, or null.
    char const* deferred = nullptr;
    std::size_t deferred_size = 0;
};

template <bool Build>
void Reader<Build>::skip(char const*& p) const noexcept
{
    skip_white_space(p, end_, flags_);
}

// The alternatives string, number, object, array, bool and null, tried in this order from the same
// start, would all fail without moving except the one that the first byte begins, and the furthest
// decides with ties to the string. So the first byte alone picks the outcome, and a literal that
// doesn't match, like any byte that begins no value, is the string's ExpectedQuote.
template <bool Build>
ParseResult Reader<Build>::value(Value& out, char const*& p, unsigned depth)
{
    if (p == end_)
        return UnexpectedEnd;
    switch (*p) {
    case '"': return string_value<Build>(out, p, end_);
    case '-':
    case '0': case '1': case '2': case '3': case '4': case '5': case '6': case '7': case '8': case '9':
        if constexpr (Build)
            return number_value(out, p, end_);
        else
            return scan_number_bytes(p, end_);
    case '{': return object_value(out, p, depth);
    case '[': return array_value(out, p, depth);
    case 't':
    case 'f':
    case 'n': return literal_value<Build>(out, p, end_);
    default: return ExpectedQuote;
    }
}

template <bool Build>
ParseResult Reader<Build>::object_value(Value& out, char const*& p, unsigned depth)
{
    Object entries;
    ParseResult const result = object(entries, p, depth);
    if constexpr (Build)
        if (result == ParseOk)
            out = Value(std::move(entries));
    return result;
}

template <bool Build>
ParseResult Reader<Build>::array_value(Value& out, char const*& p, unsigned depth)
{
    Array elements;
    ParseResult const result = array(elements, p, depth);
    if constexpr (Build)
        if (result == ParseOk)
            out = Value(std::move(elements));
    return result;
}

// Enters an array or object at its opening byte: what is tested before the first element, in this order,
// so that every container fails alike at its start.
template <bool Build>
ParseResult Reader<Build>::open(char const*& p, char opener, ParseResult not_opened, unsigned depth)
{
    if (p == end_)
        return UnexpectedEnd;
    if (*p != opener)
        return not_opened;
    if (depth >= max_nesting_depth)
        return NestingTooDeep;
    ++p;
    skip(p);
    return p == end_ ? UnexpectedEnd : ParseOk;
}

template <bool Build>
ParseResult Reader<Build>::array(Array& out, char const*& p, unsigned depth)
{
    std::size_t const size_hint = std::exchange(size_hint_, 0);
    if (ParseResult const opened = open(p, '[', ExpectedArrayStart, depth); opened != ParseOk)
        return opened;
    if constexpr (Build)
        out.reserve(size_hint);
    if (*p == ']') {
        ++p;
        last_array_size_ = 0;
        return ParseOk;
    }
    for (std::size_t count = 1;; ++count) {
        Value& element = Build ? append(out) : unused_;
        if (ParseResult const result = value(element, p, depth + 1); result != ParseOk)
            return result;
        skip(p);
        if (p == end_)
            return UnexpectedEnd;
        if (*p == ',') {
            ++p;
            skip(p);
            continue;
        }
        if (*p != ']')
            return ExpectedArrayEnd;
        ++p;
        last_array_size_ = count;
        return ParseOk;
    }
}

template <bool Build>
ParseResult Reader<Build>::object(Object& out, char const*& p, unsigned depth)
{
    if (ParseResult const opened = open(p, '{', ExpectedObjectStart, depth); opened != ParseOk)
        return opened;
    if (*p == '}') {
        ++p;
        if constexpr (Build)
            out.clear();
        return ParseOk;
    }
    Object entries;
    TypedData typed;
    std::string key;
    for (;;) {
        key.clear();
        ParseResult result = read_string<true>(key, p, end_);
        if (result != ParseOk)
            return result;
        skip(p);
        if (p == end_)
            return UnexpectedEnd;
        if (*p != ':')
            return ExpectedColon;
        ++p;
        skip(p);
        Value member;
        if (key == data_key)
            result = data_member(typed, entries, member, p, depth + 1);
        else if (key == type_key)
            result = type_member(typed, entries, member, p, depth + 1);
        else
            result = value(member, p, depth + 1);
        if (result != ParseOk)
            return result;
        skip(p);
        if (p == end_)
            return UnexpectedEnd;
        if constexpr (Build)
            insert(entries, key, member);
        if (*p == ',') {
            ++p;
            skip(p);
            continue;
        }
        if (*p != '}')
            return ExpectedObjectEnd;
        ++p;
        if constexpr (Build) {
            if (typed.deferred) {
                if (result = read_deferred_data(typed, entries, p, depth + 1); result != ParseOk)
                    return result;
            }
            out.swap(entries);
        }
        return ParseOk;
    }
}

// The first reading of "zqdata" builds only what the object keeps: a repeated key is dropped, and an
// untyped value that a "zqtype" may still ask to read as integers is only checked, and built when the
// object has ended without one. Once a "zqtype" has come, the untyped value is built at once, as
// another "zqtype" is unlikely. An exception ends the reading as UnexpectedEnd at the value.
template <bool Build>
ParseResult Reader<Build>::data_member(TypedData& typed, Object& entries, Value& member, char const*& p,
                                       unsigned depth)
{
    typed.data_start = p;
    typed.data_pending = true;
    bool const kept = Build && !entries.contains(data_key);
    bool const defer = kept && typed.kind == IntegerKind::none && !typed.type_seen;
    try {
        ParseResult result;
        if (kept && !defer) {
            result = typed_data(typed.kind, member, p, depth);
            typed.data_size = last_array_size_;
        } else {
            Reader<false> checker(end_, flags_);
            result = checker.typed_data(typed.kind, member, p, depth);
            typed.data_size = checker.last_array_size();
        }
        if (typed.data_start == end_ || *typed.data_start != '[')
            typed.data_size = 0;
        if (defer && result == ParseOk) {
            typed.deferred = typed.data_start;
            typed.deferred_size = typed.data_size;
        }
        return result;
    } catch (...) {
        p = typed.data_start;
        return UnexpectedEnd;
    }
}

// Only a string can set the type; any other value leaves the type and the pending data as they were.
template <bool Build>
ParseResult Reader<Build>::type_member(TypedData& typed, Object& entries, Value& member, char const*& p,
                                       unsigned depth)
{
    typed.type_seen = true;
    if (p == end_ || *p != '"')
        return value(member, p, depth);
    std::string name;
    if (ParseResult const result = read_string<true>(name, p, end_); result != ParseOk)
        return result;
    if (IntegerKind const kind = integer_kind(name); kind != IntegerKind::none)
        typed.kind = kind;
    if constexpr (Build)
        member = Value(std::move(name));
    if (!typed.data_pending || typed.kind == IntegerKind::none)
        return ParseOk;
    return read_data_again(typed, entries, depth);
}

// The integer reading of "zqdata" from where its value starts; the object's own position stays after
// the value of "zqtype", where a failure is reported. An exception is ignored like a "zqtype" that is
// no string: the entry stays Undefined and the data pending.
template <bool Build>
ParseResult Reader<Build>::read_data_again(TypedData& typed, Object& entries, unsigned depth)
{
    Value* entry = nullptr;
    if constexpr (Build) {
        entry = &entries[data_key];
        *entry = Value();
        typed.deferred = nullptr;
    }
    char const* cursor = typed.data_start;
    Value data;
    try {
        size_hint_ = typed.data_size;
        if (ParseResult const result = typed_data(typed.kind, data, cursor, depth); result != ParseOk)
            return result;
    } catch (...) {
        return ParseOk;
    }
    if constexpr (Build)
        *entry = std::move(data);
    typed.data_pending = false;
    return ParseOk;
}

// The untyped reading of "zqdata" that was put off; the same bytes passed the same grammar before.
template <bool Build>
ParseResult Reader<Build>::read_deferred_data(TypedData const& typed, Object& entries, char const*& p,
                                              unsigned depth)
{
    char const* cursor = typed.deferred;
    try {
        size_hint_ = typed.deferred_size;
        [[maybe_unused]] ParseResult const result = value(entries.find(data_key)->second, cursor, depth);
        assert(result == ParseOk);
    } catch (...) {
        p = typed.deferred;
        return UnexpectedEnd;
    }
    return ParseOk;
}

template <bool Build>
ParseResult Reader<Build>::typed_data(IntegerKind kind, Value& out, char const*& p, unsigned depth)
{
    if (kind == IntegerKind::none)
        return value(out, p, depth);
    Array elements;
    ParseResult const result = kind == IntegerKind::signed_integer
        ? integer_array<long long>(elements, p, depth)
        : integer_array<unsigned long long>(elements, p, depth);
    if constexpr (Build)
        if (result == ParseOk)
            out = Value(std::move(elements));
    return result;
}

template <bool Build>
template <typename Integer>
ParseResult Reader<Build>::integer_array(Array& out, char const*& position, unsigned depth)
{
    LocalPosition local{position};
    char const*& p = local.p;
    std::size_t const size_hint = std::exchange(size_hint_, 0);
    if (ParseResult const opened = open(p, '[', ExpectedArrayStart, depth); opened != ParseOk)
        return opened;
    if (*p == ']') {
        ++p;
        if constexpr (Build)
            out.clear();
        last_array_size_ = 0;
        return ParseOk;
    }
    Array elements;
    if constexpr (Build)
        elements.reserve(size_hint);
    for (std::size_t count = 1;; ++count) {
        Integer element;
        if (ParseResult const result = read_integer(element, p, end_); result != ParseOk)
            return result;
        skip(p);
        if (p == end_)
            return UnexpectedEnd;
        if constexpr (Build)
            elements.emplace_back(element);
        if (*p == ',') {
            ++p;
            skip(p);
            continue;
        }
        // A byte that would go on with a fraction, an exponent, a string or an object is no plain
        // integer; white space before it changes nothing.
        if (*p != ']')
            return breaks_integer(*p) ? BadInteger : ExpectedArrayEnd;
        ++p;
        if constexpr (Build)
            out.swap(elements);
        last_array_size_ = count;
        return ParseOk;
    }
}

template class Reader<true>;
template class Reader<false>;

} // namespace zq::test::reference
