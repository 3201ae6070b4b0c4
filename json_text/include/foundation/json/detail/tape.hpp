// The compact form of a JSON document: what the text reader makes instead of a tree of values.
#pragma once

#include <foundation/json/parse_result.hpp>
#include <foundation/json/value.hpp>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <new>
#include <string>
#include <string_view>
#include <memory>
#include <type_traits>
#include <vector>

namespace foundation::json::detail {

/// One value of a tape. kind is the tag that foundation::json::Value::which() would give it.
///
/// - bool: payload 0 or 1.
/// - number: payload the bits of the double; or, for a number written as a plain integer of at most 19
///   digits without a leading zero (integer_token set), its magnitude with negative, so that typed data
///   read first untyped become integers without reading the text again. Its double is the magnitude
///   converted, which rounds as the decimal text does.
/// - long long, unsigned long long: payload the value.
/// - string: count bytes at offset payload of the tape's text buffer.
/// - array: count elements, which follow it on the tape; payload the index after the last of them. An
///   array of numbers only (packed set to their form) holds them instead as count words, eight bytes a
///   number, and nothing follows it on the tape: at offset payload of the tape's number buffer, or, for
///   a long array (integer_token set), in block payload of its own.
/// - object: count entries in the member table from offset (payload & 0xffffffff), sorted by key, each
///   key once (the first wins); the values lie on the tape after the object, up to (payload >> 32).
struct TapeSlot {
    std::uint8_t kind = 0;
    bool integer_token = false;
    bool negative = false;
    std::uint8_t packed = 0;
    std::uint32_t count = 0;
    std::uint64_t payload = 0;
};

/// How the words of a packed array hold its numbers.
enum PackedForm : std::uint8_t {
    /// Not packed.
    unpacked = 0,
    /// The bits of doubles.
    packed_doubles = 1,
    /// Plain integers of at most 19 digits within the range of long long, as long long: numbers, whose
    /// doubles are the integers converted.
    packed_integer_tokens = 2,
    /// Typed data: long long.
    packed_int64 = 3,
    /// Typed data: unsigned long long.
    packed_uint64 = 4,
};

/// An entry of an object: its key in the text buffer and the index of its value on the tape.
struct TapeMember {
    std::uint64_t key_offset;
    std::uint32_t key_length;
    std::uint32_t value;
};

/// A growing array of trivially copyable T whose storage comes from malloc and grows by realloc, which
/// moves a large block by remapping its pages rather than copying them: a tape of millions of values
/// grows without copying itself at every doubling.
template <typename T>
class TapeBuffer {
    static_assert(std::is_trivially_copyable_v<T>);

public:
    TapeBuffer() = default;
    TapeBuffer(TapeBuffer const&) = delete;
    TapeBuffer& operator=(TapeBuffer const&) = delete;
    ~TapeBuffer() { std::free(data_); }

    std::size_t size() const noexcept { return size_; }
    T* data() noexcept { return data_; }
    T const* data() const noexcept { return data_; }
    T& operator[](std::size_t index) noexcept { return data_[index]; }
    T const& operator[](std::size_t index) const noexcept { return data_[index]; }

    /// Drops the elements from count on.
    void truncate(std::size_t count) noexcept { size_ = count; }

    /// The elements, handed over as one block of exactly their size that std::free frees (null for
    /// none); the buffer is left empty.
    void* release() noexcept
    {
        void* block = data_;
        if (size_ == 0) {
            std::free(block);
            block = nullptr;
        } else if (void* const shrunk = std::realloc(block, size_ * sizeof(T))) {
            // Shrinking hardly ever fails; if it does, the larger block serves as well.
            block = shrunk;
        }
        data_ = nullptr;
        size_ = capacity_ = 0;
        return block;
    }

    /// Room for count elements without growing. A block this large is mapped lazily, so the room costs
    /// memory only as far as it is used.
    /// @throws std::bad_alloc
    void reserve(std::size_t count)
    {
        if (count > capacity_)
            grow(count);
    }

    /// @throws std::bad_alloc
    void push_back(T const& value)
    {
        if (size_ == capacity_)
            grow(size_ + 1);
        data_[size_++] = value;
    }

    /// @throws std::bad_alloc
    void append(T const* first, T const* last)
    {
        auto const count = static_cast<std::size_t>(last - first);
        if (count == 0)
            return; // first may be null, which memcpy does not allow even for no bytes
        if (capacity_ - size_ < count)
            grow(size_ + count);
        std::memcpy(data_ + size_, first, count * sizeof(T));
        size_ += count;
    }

private:
    void grow(std::size_t needed)
    {
        std::size_t const capacity = std::max<std::size_t>({ needed, 2 * capacity_, 4096 / sizeof(T) });
        if (capacity > std::numeric_limits<std::size_t>::max() / sizeof(T))
            throw std::bad_alloc();
        void* const grown = std::realloc(data_, capacity * sizeof(T));
        if (!grown)
            throw std::bad_alloc();
        data_ = static_cast<T*>(grown);
        capacity_ = capacity;
    }

    T* data_ = nullptr;
    std::size_t size_ = 0;
    std::size_t capacity_ = 0;
};

/// A JSON document as one flat vector of values in document order (each container followed by what it
/// holds), its strings unescaped into one buffer, and one table of object members. A value costs 16
/// bytes, an object member 16 more, a string its bytes; nothing is allocated per value. The reader of
/// JSON text fills it (read_tape); the notation's readers walk it through their node view.
class Tape {
public:
    /// The slot at index, 0 being the document's root.
    TapeSlot const& slot(std::uint32_t index) const noexcept { return slots_[index]; }

    /// The double of a number slot.
    double number(std::uint32_t index) const noexcept
    {
        TapeSlot const& s = slots_[index];
        if (!s.integer_token)
            return std::bit_cast<double>(s.payload);
        double const magnitude = static_cast<double>(s.payload);
        return s.negative ? -magnitude : magnitude;
    }

    /// The bytes of a string slot, or of a member's key.
    std::string_view string(std::uint32_t index) const noexcept
    {
        return { text_.data() + slots_[index].payload, slots_[index].count };
    }
    std::string_view key(TapeMember const& member) const noexcept
    {
        return { text_.data() + member.key_offset, member.key_length };
    }

    /// The alternative of the elements of a packed array, numbered as the slots' kinds.
    std::uint8_t packed_kind(std::uint32_t index) const noexcept
    {
        switch (slots_[index].packed) {
        case packed_int64: return int64_kind;
        case packed_uint64: return uint64_kind;
        default: return number_kind;
        }
    }

    /// The word of element ordinal of a packed array.
    std::uint64_t word(std::uint32_t index, std::uint32_t ordinal) const noexcept
    {
        TapeSlot const& s = slots_[index];
        return s.integer_token ? (*blocks_[s.payload])[ordinal] : numbers_[s.payload + ordinal];
    }

    /// The words of the packed array at index, handed over to the caller (freed with std::free), when the
    /// array is the value of "zqdata" of an object that is the whole document and has a block of its
    /// own: data that the readers read once only, after which the tape has them no more. Null otherwise.
    void* take_root_data(std::uint32_t index) const noexcept;

    /// The double of element ordinal of a packed array of numbers.
    double packed_number(std::uint32_t index, std::uint32_t ordinal) const noexcept
    {
        std::uint64_t const w = word(index, ordinal);
        if (slots_[index].packed == packed_doubles)
            return std::bit_cast<double>(w);
        return static_cast<double>(static_cast<long long>(w));
    }

    /// The index after the value at index and everything it holds.
    std::uint32_t next(std::uint32_t index) const noexcept
    {
        TapeSlot const& s = slots_[index];
        if (s.kind == array_kind)
            return s.packed ? index + 1 : static_cast<std::uint32_t>(s.payload);
        if (s.kind == object_kind)
            return static_cast<std::uint32_t>(s.payload >> 32);
        return index + 1;
    }

    /// The first member of an object slot; its count members follow it.
    TapeMember const* members(std::uint32_t index) const noexcept
    {
        return members_.data() + (slots_[index].payload & 0xffffffffu);
    }

    static constexpr std::uint8_t undefined_kind = 0;
    static constexpr std::uint8_t null_kind = 1;
    static constexpr std::uint8_t bool_kind = 2;
    static constexpr std::uint8_t number_kind = 3;
    static constexpr std::uint8_t string_kind = 4;
    static constexpr std::uint8_t array_kind = 5;
    static constexpr std::uint8_t object_kind = 6;
    static constexpr std::uint8_t int64_kind = 8;
    static constexpr std::uint8_t uint64_kind = 9;

private:
    friend class TapeReader;

    TapeBuffer<TapeSlot> slots_;
    TapeBuffer<TapeMember> members_;
    TapeBuffer<std::uint64_t> numbers_;
    // The words of long packed arrays, one block each; a block may be taken, which is why it is mutable.
    mutable std::vector<std::unique_ptr<TapeBuffer<std::uint64_t>>> blocks_;
    std::string text_;
};

/// Where in the grammar read_tape begins: at any value, or at an object, an array, or a flat array of
/// integers read as long long or unsigned long long (the typed data of "zqdata").
enum class TapeStart : unsigned char { value, object, array, signed_integers, unsigned_integers };

/// Reads one JSON value from [p, end) onto tape, which must be empty, by the grammar of parse_value (or
/// of the step that start names): the same result codes, and p left where that step leaves its
/// position. On failure the tape holds garbage.
/// @throws std::bad_alloc; std::length_error for a document of more than 2^32 - 2 values or members,
/// or a string of 2^32 bytes or more.
ParseResult read_tape(Tape& tape, char const*& p, char const* end, unsigned flags, TapeStart start = TapeStart::value);

/// The tree of values of the slot at index, as parse_value builds it from the same text.
/// @throws std::bad_alloc
Value tape_to_value(Tape const& tape, std::uint32_t index);

} // namespace foundation::json::detail
