// The recursive part of the JSON grammar, writing the compact form, with the typed reading of "zqdata".
#include "byte_classes.hpp"
#include "number_reader.hpp"
#include "string_reader.hpp"
#include "whitespace.hpp"

#include <foundation/json/detail/parser_steps.hpp>
#include <foundation/json/detail/string_to_double.hpp>
#include <foundation/json/detail/tape.hpp>
#include <foundation/json/nesting_limit.hpp>

#include <algorithm>
#include <bit>
#include <cstddef>
#include <limits>
#include <memory>
#include <stdexcept>
#include <type_traits>

namespace foundation::json::detail {

namespace {

constexpr std::string_view data_key = "zqdata";
constexpr std::string_view type_key = "zqtype";
constexpr std::uint32_t index_limit = std::numeric_limits<std::uint32_t>::max();
constexpr std::size_t none = std::numeric_limits<std::size_t>::max();

/// How the value of "zqdata" is read.
enum class IntegerKind : unsigned char { none, signed_integer, unsigned_integer };

IntegerKind integer_kind(std::string_view type) noexcept
{
    if (is_signed_type(type))
        return IntegerKind::signed_integer;
    if (is_unsigned_type(type))
        return IntegerKind::unsigned_integer;
    return IntegerKind::none;
}

bool breaks_integer(char c) noexcept
{
    return c == '"' || c == '.' || c == 'e' || c == 'E' || c == '{';
}

// The slot of an integer read as typed data, saturated as read_integer saturates.
template <typename Integer>
TapeSlot integer_slot(Integer value) noexcept
{
    return { std::is_signed_v<Integer> ? Tape::int64_kind : Tape::uint64_kind, false, false, unpacked, 0,
        static_cast<std::uint64_t>(value) };
}

// A number as its token reads: a plain integer of at most 19 digits without a leading zero keeps its
// magnitude; any other number is its double.
struct NumberToken {
    bool plain = false;
    bool negative = false;
    std::uint64_t magnitude = 0;
    double value = 0.0;

    double as_double() const noexcept
    {
        if (!plain)
            return value;
        return negative ? -static_cast<double>(magnitude) : static_cast<double>(magnitude);
    }
    bool fits_long_long() const noexcept
    {
        constexpr auto largest = static_cast<std::uint64_t>(std::numeric_limits<long long>::max());
        return plain && magnitude <= largest + (negative ? 1 : 0);
    }
    // The two's complement word of a token that fits long long.
    std::uint64_t long_long_word() const noexcept { return negative ? 0 - magnitude : magnitude; }
};

ParseResult read_number(char const*& p, char const* end, NumberToken& token)
{
    char const* const start = p;
    if (ParseResult const result = scan_number_bytes(p, end); result != ParseOk)
        return result;
    token.negative = *start == '-';
    char const* const digits = start + token.negative;
    auto const length = static_cast<std::size_t>(p - digits);
    if (length <= 19 && (*digits != '0' || (length == 1 && !token.negative))) {
        std::uint64_t magnitude = 0;
        char const* d = digits;
        for (; d != p && is_digit(*d); ++d)
            magnitude = magnitude * 10 + static_cast<std::uint64_t>(*d - '0');
        if (d == p) {
            token.plain = true;
            token.magnitude = magnitude;
            return ParseOk;
        }
    }
    token.plain = false;
    token.value = string_to_double(start, p);
    return ParseOk;
}

TapeSlot typed_integer(TapeSlot const& token, IntegerKind kind) noexcept
{
    constexpr auto largest = static_cast<std::uint64_t>(std::numeric_limits<long long>::max());
    if (kind == IntegerKind::unsigned_integer)
        return integer_slot<unsigned long long>(token.negative ? 0 : token.payload);
    if (token.negative)
        return integer_slot<long long>(token.payload > largest ? std::numeric_limits<long long>::min()
                                                               : -static_cast<long long>(token.payload));
    return integer_slot<long long>(token.payload > largest ? std::numeric_limits<long long>::max()
                                                           : static_cast<long long>(token.payload));
}

} // namespace

/// Reads JSON text onto a tape. Each value is appended where it begins; a container's slot is completed
/// when it closes. Objects gather their members on a stack of their own and sort them when they close.
class TapeReader {
public:
    /// @throws std::bad_alloc
    TapeReader(Tape& tape, char const* p, char const* end, unsigned flags)
        : tape_(tape)
        , end_(end)
        , flags_(flags)
    {
        // A value takes eight bytes of text or more in most documents, a packed number four, so the
        // tape seldom grows, and growing copies it. The room is mapped lazily; it is capped so that a
        // huge text asks for no more address space than a gigabyte ahead.
        constexpr std::size_t most_reserved = std::size_t{1} << 26;
        auto const bytes = static_cast<std::size_t>(end - p);
        tape_.slots_.reserve(std::min(bytes / 8 + 1, most_reserved));
        tape_.numbers_.reserve(std::min(bytes / 4 + 1, most_reserved));
        // Unescaped strings never take more bytes than their text, so the buffer of strings never grows.
        tape_.text_.reserve(std::min(bytes, most_reserved * 16));
    }

    ParseResult value(char const*& p, unsigned depth);
    ParseResult array(char const*& p, unsigned depth);
    ParseResult object(char const*& p, unsigned depth);
    ParseResult typed_data(IntegerKind kind, char const*& p, unsigned depth);
    template <typename Integer>
    ParseResult integer_array(char const*& p, unsigned depth);

private:
    // The typed-data bookkeeping of one object.
    struct TypedData {
        IntegerKind kind = IntegerKind::none;
        // Set by every "zqdata", cleared when the integer reading that a "zqtype" asks for succeeds.
        bool data_pending = false;
        // Where the value of the latest "zqdata" starts, and its slot.
        char const* data_start = nullptr;
        std::uint32_t data_slot = 0;
        // The member of the first "zqdata", which the object keeps, among the pending members.
        std::size_t data_member = none;
    };

    ParseResult open(char const*& p, char opener, ParseResult not_opened, unsigned depth);
    ParseResult string(char const*& p);
    ParseResult number(char const*& p);
    // The numbers of an array that holds numbers only so far: in the shared number buffer while few, in a
    // block of their own once many, which the array of a document's data can take over whole.
    struct Packing {
        std::size_t first;
        std::uint8_t form;
        TapeBuffer<std::uint64_t>* block = nullptr;
    };

    Packing start_packing(std::uint8_t form) const noexcept { return { tape_.numbers_.size(), form }; }
    std::uint64_t* packed_words(Packing const& packing) noexcept;
    std::size_t packed_count(Packing const& packing) const noexcept;
    void pack(Packing& packing, std::uint64_t word, char const* p);
    void finish_packing(Packing const& packing, TapeSlot& slot) const noexcept;
    ParseResult packed_number(char const*& p, Packing& packing);
    void unpack(Packing const& packing);
    void count_element(std::uint32_t& count) const;
    ParseResult literal(char const*& p);
    ParseResult data_member(TypedData& typed, char const*& p, unsigned depth);
    ParseResult type_member(TypedData& typed, char const*& p, unsigned depth);
    ParseResult read_data_again(TypedData& typed, unsigned depth);
    bool retype(std::uint32_t data, IntegerKind kind) noexcept;
    void close_object(std::uint32_t index, std::size_t first_member);
    std::uint32_t push(TapeSlot slot);
    std::uint32_t text_length(std::size_t offset) const;

    void skip(char const*& p) const noexcept { skip_white_space(p, end_, flags_); }
    std::uint32_t size() const noexcept { return static_cast<std::uint32_t>(tape_.slots_.size()); }

    Tape& tape_;
    char const* end_;
    unsigned flags_;
    // The members of the objects being read, innermost last.
    std::vector<TapeMember> pending_;
};

std::uint32_t TapeReader::push(TapeSlot slot)
{
    if (tape_.slots_.size() >= index_limit)
        throw std::length_error("JSON text holds more values than can be read");
    tape_.slots_.push_back(slot);
    return size() - 1;
}

std::uint32_t TapeReader::text_length(std::size_t offset) const
{
    std::size_t const length = tape_.text_.size() - offset;
    if (length > index_limit)
        throw std::length_error("JSON string too long to be read");
    return static_cast<std::uint32_t>(length);
}

// The alternatives string, number, object, array, bool and null, tried in this order from the same
// start, would all fail without moving except the one that the first byte begins, and the furthest
// decides with ties to the string. So the first byte alone picks the outcome, and a literal that
// doesn't match, like any byte that begins no value, is the string's ExpectedQuote.
ParseResult TapeReader::value(char const*& p, unsigned depth)
{
    if (p == end_)
        return UnexpectedEnd;
    switch (*p) {
    case '"': return string(p);
    case '-':
    case '0': case '1': case '2': case '3': case '4': case '5': case '6': case '7': case '8': case '9':
        return number(p);
    case '{': return object(p, depth);
    case '[': return array(p, depth);
    case 't':
    case 'f':
    case 'n': return literal(p);
    default: return ExpectedQuote;
    }
}

ParseResult TapeReader::string(char const*& p)
{
    std::size_t const offset = tape_.text_.size();
    if (ParseResult const result = read_string<true>(tape_.text_, p, end_); result != ParseOk)
        return result;
    push({ Tape::string_kind, false, false, unpacked, text_length(offset), offset });
    return ParseOk;
}

// A plain integer of at most 19 digits keeps its digits, so that the typed reading that a later "zqtype"
// may ask for needs no second look at the text; any other number is converted as a double at once.
ParseResult TapeReader::number(char const*& p)
{
    NumberToken token;
    if (ParseResult const result = read_number(p, end_, token); result != ParseOk)
        return result;
    if (token.plain)
        push({ Tape::number_kind, true, token.negative, unpacked, 0, token.magnitude });
    else
        push({ Tape::number_kind, false, false, unpacked, 0, std::bit_cast<std::uint64_t>(token.value) });
    return ParseOk;
}

std::uint64_t* TapeReader::packed_words(Packing const& packing) noexcept
{
    return packing.block ? packing.block->data() : tape_.numbers_.data() + packing.first;
}

std::size_t TapeReader::packed_count(Packing const& packing) const noexcept
{
    return packing.block ? packing.block->size() : tape_.numbers_.size() - packing.first;
}

// An array gets a block of its own at this many numbers: few arrays are that long, and the copy into
// the block is small beside reading them.
constexpr std::size_t own_block_numbers = 65536;

// p is where the reading stands, so that a block can have room for as many numbers as the rest of the
// text could hold: it then never moves while it grows, and the room it does not use is never touched.
void TapeReader::pack(Packing& packing, std::uint64_t word, char const* p)
{
    if (packing.block) {
        packing.block->push_back(word);
        return;
    }
    tape_.numbers_.push_back(word);
    if (tape_.numbers_.size() - packing.first < own_block_numbers)
        return;
    // No other array is packed meanwhile, so the numbers so far lie at the end of the shared buffer.
    auto block = std::make_unique<TapeBuffer<std::uint64_t>>();
    constexpr std::size_t most_reserved = std::size_t{1} << 27;
    std::size_t const room = own_block_numbers + static_cast<std::size_t>(end_ - p) / 2;
    block->reserve(std::min(room, most_reserved));
    block->append(tape_.numbers_.data() + packing.first, tape_.numbers_.data() + tape_.numbers_.size());
    tape_.blocks_.push_back(std::move(block));
    packing.block = tape_.blocks_.back().get();
    tape_.numbers_.truncate(packing.first);
}

void TapeReader::finish_packing(Packing const& packing, TapeSlot& slot) const noexcept
{
    slot.packed = packing.form;
    slot.integer_token = packing.block != nullptr;
    slot.payload = packing.block ? tape_.blocks_.size() - 1 : packing.first;
}

// An element of an array that holds only numbers so far, as a word: integers while every number is one
// within the range of long long, then doubles, the integers so far turned too.
ParseResult TapeReader::packed_number(char const*& p, Packing& packing)
{
    NumberToken token;
    if (ParseResult const result = read_number(p, end_, token); result != ParseOk)
        return result;
    if (packing.form == packed_integer_tokens) {
        if (token.fits_long_long()) {
            pack(packing, token.long_long_word(), p);
            return ParseOk;
        }
        std::uint64_t* const words = packed_words(packing);
        for (std::size_t i = 0, count = packed_count(packing); i != count; ++i)
            words[i] = std::bit_cast<std::uint64_t>(static_cast<double>(static_cast<long long>(words[i])));
        packing.form = packed_doubles;
    }
    pack(packing, std::bit_cast<std::uint64_t>(token.as_double()), p);
    return ParseOk;
}

// The numbers packed so far become slots, as if the array had never been packed: a value that is no
// number has come.
void TapeReader::unpack(Packing const& packing)
{
    std::uint64_t const* const words = packed_words(packing);
    for (std::size_t i = 0, count = packed_count(packing); i != count; ++i) {
        if (packing.form == packed_doubles) {
            push({ Tape::number_kind, false, false, unpacked, 0, words[i] });
        } else {
            auto const value = static_cast<long long>(words[i]);
            std::uint64_t const magnitude = value < 0 ? 0 - words[i] : words[i];
            push({ Tape::number_kind, true, value < 0, unpacked, 0, magnitude });
        }
    }
    if (packing.block)
        tape_.blocks_.pop_back();
    else
        tape_.numbers_.truncate(packing.first);
}

void TapeReader::count_element(std::uint32_t& count) const
{
    if (count == index_limit)
        throw std::length_error("JSON array holds more elements than can be read");
    ++count;
}

ParseResult TapeReader::literal(char const*& p)
{
    std::string_view const word = *p == 't' ? "true" : *p == 'f' ? "false" : "null";
    if (!starts_with(p, end_, word))
        return ExpectedQuote;
    if (*p == 'n')
        push({ Tape::null_kind, false, false, unpacked, 0, 0 });
    else
        push({ Tape::bool_kind, false, false, unpacked, 0, *p == 't' });
    p += word.size();
    return ParseOk;
}

// Enters an array or object at its opening byte: what is tested before the first element, in this order,
// so that every container fails alike at its start.
ParseResult TapeReader::open(char const*& p, char opener, ParseResult not_opened, unsigned depth)
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

// An array is packed while it holds numbers only, and unpacked at the first value that is none.
ParseResult TapeReader::array(char const*& p, unsigned depth)
{
    if (ParseResult const opened = open(p, '[', ExpectedArrayStart, depth); opened != ParseOk)
        return opened;
    std::uint32_t const index = push({ Tape::array_kind, false, false, unpacked, 0, 0 });
    Packing packing = start_packing(packed_integer_tokens);
    bool packed = true;
    std::uint32_t count = 0;
    if (*p != ']') {
        for (;;) {
            ParseResult result;
            if (packed && (*p == '-' || is_digit(*p))) {
                result = packed_number(p, packing);
            } else {
                if (packed)
                    unpack(packing);
                packed = false;
                result = value(p, depth + 1);
            }
            if (result != ParseOk)
                return result;
            count_element(count);
            skip(p);
            if (p == end_)
                return UnexpectedEnd;
            if (*p != ',')
                break;
            ++p;
            skip(p);
        }
        if (*p != ']')
            return ExpectedArrayEnd;
    }
    ++p;
    TapeSlot& slot = tape_.slots_[index];
    slot.count = count;
    if (packed && count != 0)
        finish_packing(packing, slot);
    else
        slot.payload = size();
    return ParseOk;
}

ParseResult TapeReader::object(char const*& p, unsigned depth)
{
    if (ParseResult const opened = open(p, '{', ExpectedObjectStart, depth); opened != ParseOk)
        return opened;
    std::uint32_t const index = push({ Tape::object_kind, false, false, unpacked, 0, 0 });
    std::size_t const first_member = pending_.size();
    if (*p == '}') {
        ++p;
        close_object(index, first_member);
        return ParseOk;
    }
    TypedData typed;
    for (;;) {
        std::size_t const key_offset = tape_.text_.size();
        ParseResult result = read_string<true>(tape_.text_, p, end_);
        if (result != ParseOk)
            return result;
        std::uint32_t const key_length = text_length(key_offset);
        std::string_view const key(tape_.text_.data() + key_offset, key_length);
        bool const is_data = key == data_key;
        bool const is_type = key == type_key;
        skip(p);
        if (p == end_)
            return UnexpectedEnd;
        if (*p != ':')
            return ExpectedColon;
        ++p;
        skip(p);
        std::uint32_t const member_value = size();
        if (is_data)
            result = data_member(typed, p, depth + 1);
        else if (is_type)
            result = type_member(typed, p, depth + 1);
        else
            result = value(p, depth + 1);
        if (result != ParseOk)
            return result;
        skip(p);
        if (p == end_)
            return UnexpectedEnd;
        if (is_data && typed.data_member == none)
            typed.data_member = pending_.size();
        pending_.push_back({ key_offset, key_length, member_value });
        if (*p == ',') {
            ++p;
            skip(p);
            continue;
        }
        if (*p != '}')
            return ExpectedObjectEnd;
        ++p;
        close_object(index, first_member);
        return ParseOk;
    }
}

// Sorted by key, the first of equal keys kept: the order and the choice of a map filled in text order.
void TapeReader::close_object(std::uint32_t index, std::size_t first_member)
{
    auto const first = pending_.begin() + static_cast<std::ptrdiff_t>(first_member);
    auto const by_key = [this](TapeMember const& a, TapeMember const& b) { return tape_.key(a) < tape_.key(b); };
    auto const out_of_order = [&](TapeMember const& a, TapeMember const& b) { return !by_key(a, b); };
    if (std::adjacent_find(first, pending_.end(), out_of_order) != pending_.end()) {
        std::stable_sort(first, pending_.end(), by_key);
        auto const same_key = [this](TapeMember const& a, TapeMember const& b) { return tape_.key(a) == tape_.key(b); };
        pending_.erase(std::unique(first, pending_.end(), same_key), pending_.end());
    }
    std::size_t const offset = tape_.members_.size();
    auto const count = static_cast<std::size_t>(pending_.end() - first);
    if (offset + count > index_limit)
        throw std::length_error("JSON text holds more object members than can be read");
    tape_.members_.append(pending_.data() + first_member, pending_.data() + pending_.size());
    pending_.erase(first, pending_.end());
    tape_.slots_[index].count = static_cast<std::uint32_t>(count);
    tape_.slots_[index].payload = std::uint64_t{ size() } << 32 | offset;
}

// Every "zqdata" is read as the object's type so far asks; an exception ends the reading as
// UnexpectedEnd at the value.
ParseResult TapeReader::data_member(TypedData& typed, char const*& p, unsigned depth)
{
    typed.data_start = p;
    typed.data_slot = size();
    typed.data_pending = true;
    try {
        return typed_data(typed.kind, p, depth);
    } catch (...) {
        p = typed.data_start;
        return UnexpectedEnd;
    }
}

// Only a string can set the type; any other value leaves the type and the pending data as they were.
ParseResult TapeReader::type_member(TypedData& typed, char const*& p, unsigned depth)
{
    if (p == end_ || *p != '"')
        return value(p, depth);
    std::uint32_t const name = size();
    if (ParseResult const result = string(p); result != ParseOk)
        return result;
    if (IntegerKind const kind = integer_kind(tape_.string(name)); kind != IntegerKind::none)
        typed.kind = kind;
    if (!typed.data_pending || typed.kind == IntegerKind::none)
        return ParseOk;
    return read_data_again(typed, depth);
}

// The integer reading of the latest "zqdata" for the entry of the first; the object's own position stays
// after the value of "zqtype", where a failure is reported. Data that were read as plain integers are
// the integers already. Otherwise the bytes are read again; an exception then is ignored like a
// "zqtype" that is no string: the entry stays Undefined and the data pending.
ParseResult TapeReader::read_data_again(TypedData& typed, unsigned depth)
{
    if (retype(typed.data_slot, typed.kind)) {
        pending_[typed.data_member].value = typed.data_slot;
        typed.data_pending = false;
        return ParseOk;
    }
    pending_[typed.data_member].value = push({ Tape::undefined_kind, false, false, unpacked, 0, 0 });
    char const* cursor = typed.data_start;
    std::uint32_t const data = size();
    try {
        if (ParseResult const result = typed_data(typed.kind, cursor, depth); result != ParseOk)
            return result;
    } catch (...) {
        return ParseOk;
    }
    pending_[typed.data_member].value = data;
    typed.data_pending = false;
    return ParseOk;
}

// A flat array of plain integers reads as typed data exactly as its tokens say, saturated.
bool TapeReader::retype(std::uint32_t data, IntegerKind kind) noexcept
{
    TapeSlot* const slots = tape_.slots_.data();
    if (slots[data].kind != Tape::array_kind)
        return false;
    if (slots[data].packed) {
        if (slots[data].packed != packed_integer_tokens)
            return false;
        // Integers within the range of long long need no saturation; an unsigned reading takes the
        // negative ones as 0.
        if (kind == IntegerKind::unsigned_integer) {
            std::uint64_t* const words = slots[data].integer_token ? tape_.blocks_[slots[data].payload]->data()
                                                                   : tape_.numbers_.data() + slots[data].payload;
            for (std::uint32_t i = 0; i != slots[data].count; ++i)
                if (static_cast<long long>(words[i]) < 0)
                    words[i] = 0;
        }
        slots[data].packed = kind == IntegerKind::signed_integer ? packed_int64 : packed_uint64;
        return true;
    }
    TapeSlot* const first = slots + data + 1;
    TapeSlot* const last = slots + slots[data].payload;
    if (!std::all_of(first, last,
            [](TapeSlot const& slot) { return slot.kind == Tape::number_kind && slot.integer_token; }))
        return false;
    std::transform(first, last, first, [kind](TapeSlot const& slot) { return typed_integer(slot, kind); });
    return true;
}

ParseResult TapeReader::typed_data(IntegerKind kind, char const*& p, unsigned depth)
{
    switch (kind) {
    case IntegerKind::signed_integer: return integer_array<long long>(p, depth);
    case IntegerKind::unsigned_integer: return integer_array<unsigned long long>(p, depth);
    default: return value(p, depth);
    }
}

template <typename Integer>
ParseResult TapeReader::integer_array(char const*& position, unsigned depth)
{
    LocalPosition local{position};
    char const*& p = local.p;
    if (ParseResult const opened = open(p, '[', ExpectedArrayStart, depth); opened != ParseOk)
        return opened;
    std::uint32_t const index = push({ Tape::array_kind, false, false, unpacked, 0, 0 });
    Packing packing = start_packing(std::is_signed_v<Integer> ? packed_int64 : packed_uint64);
    std::uint32_t count = 0;
    if (*p != ']') {
        for (;;) {
            Integer element;
            if (ParseResult const result = read_integer(element, p, end_); result != ParseOk)
                return result;
            skip(p);
            if (p == end_)
                return UnexpectedEnd;
            pack(packing, static_cast<std::uint64_t>(element), p);
            count_element(count);
            if (*p != ',')
                break;
            ++p;
            skip(p);
        }
        // A byte that would go on with a fraction, an exponent, a string or an object is no plain
        // integer; white space before it changes nothing.
        if (*p != ']')
            return breaks_integer(*p) ? BadInteger : ExpectedArrayEnd;
    }
    ++p;
    TapeSlot& slot = tape_.slots_[index];
    slot.count = count;
    if (count != 0)
        finish_packing(packing, slot);
    else
        slot.payload = size();
    return ParseOk;
}

ParseResult read_tape(Tape& tape, char const*& p, char const* end, unsigned flags, TapeStart start)
{
    TapeReader reader(tape, p, end, flags);
    switch (start) {
    case TapeStart::object: return reader.object(p, 0);
    case TapeStart::array: return reader.array(p, 0);
    case TapeStart::signed_integers: return reader.integer_array<long long>(p, 0);
    case TapeStart::unsigned_integers: return reader.integer_array<unsigned long long>(p, 0);
    default: return reader.value(p, 0);
    }
}

} // namespace foundation::json::detail
