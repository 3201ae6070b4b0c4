// String arrays: arrays of UTF-16 strings that may be missing.
#pragma once

#include "array_impl.hpp"
#include "slot_vector.hpp"

#include <cstdlib>
#include <string_view>

namespace zorbal::data::detail {

/// One present string; a missing element is a null slot. Strings never change once made, so copies of
/// a string array share them. The code units follow the record in its one block of memory.
class StringRecord final : public RefCounted {
public:
    /// @throws foundation::zorbaldata::EArrayTooLarge when the block cannot be had.
    static StringRecord* make(std::u16string_view text);

    std::u16string_view text() const noexcept { return {units(), length_}; }

    // The block was had from malloc, for the record and its units together.
    static void operator delete(void* block) noexcept { std::free(block); }

private:
    explicit StringRecord(std::size_t length) noexcept : length_(length) {}
    ~StringRecord() override = default;

    char16_t* units() noexcept { return reinterpret_cast<char16_t*>(this + 1); }
    char16_t const* units() const noexcept { return reinterpret_cast<char16_t const*>(this + 1); }

    std::size_t length_;
};

class StringArrayImpl final : public ArrayImpl {
public:
    /// Every element missing. @throws foundation::zorbaldata::EArrayTooLarge when the elements cannot be had.
    explicit StringArrayImpl(Dimensions dimensions);
    /// The same strings, shared. @throws foundation::zorbaldata::EArrayTooLarge when they cannot be had.
    StringArrayImpl(StringArrayImpl const& other);

    /// The string at index, null when it is missing.
    StringRecord const* at(unsigned long index) const noexcept { return static_cast<StringRecord const*>(slots_.at(index)); }
    void store(unsigned long index, StringRecord* adopted) noexcept { slots_.store(index, adopted); }

    bool sameContent(ArrayImpl const& other) const override;

private:
    SlotVector slots_;
};

} // namespace zorbal::data::detail
