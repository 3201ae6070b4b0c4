// String arrays: arrays of UTF-16 strings that may be missing.
#pragma once

#include "array_impl.hpp"
#include "slot_vector.hpp"
#include "string_arena.hpp"

#include <cstdlib>
#include <memory>
#include <string_view>

namespace zorbal::data::detail {

/// One present string; a missing element is a null slot. Strings never change once made, so copies of
/// a string array share them. The code units follow the record in its one block of memory. A record
/// made in an arena is never freed by itself: the arena frees it, after every array that holds it.
class StringRecord final : public RefCounted {
public:
    /// A record of text in room from arena when it has some, else in a block of its own.
    /// @throws foundation::zorbaldata::EArrayTooLarge when the block cannot be had.
    static StringRecord* make(std::u16string_view text, StringArena* arena = nullptr);

    std::u16string_view text() const noexcept { return {units(), length_}; }
    bool releasesOthers() const noexcept override { return false; }

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
    /// Makes the element at index missing.
    void storeMissing(unsigned long index) noexcept { slots_.store(index, nullptr); }
    /// Puts text at index. @throws foundation::zorbaldata::EArrayTooLarge when it cannot be had.
    void storeText(unsigned long index, std::u16string_view text);

    bool sameContent(ArrayImpl const& other) const override;

private:
    // Arrays filled in order, as readers fill them, take the room of their strings from the arena: a
    // slot past every slot written before is written for the first time, so the arena never holds more
    // than one string for each element. Strings that replace others have blocks of their own.
    static constexpr unsigned long fewest_for_arena = 8;

    std::shared_ptr<StringArena> arena_;
    SlotVector slots_;
};

} // namespace zorbal::data::detail
