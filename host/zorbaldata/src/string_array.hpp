// String arrays: arrays of UTF-16 strings that may be missing.
#pragma once

#include "array_impl.hpp"
#include "slot_vector.hpp"

#include <string>

namespace zorbal::data::detail {

/// One present string; a missing element is a null slot. Strings never change once made, so copies of
/// a string array share them.
class StringRecord final : public RefCounted {
public:
    explicit StringRecord(std::u16string text) : text_(std::move(text)) {}
    std::u16string const& text() const noexcept { return text_; }

private:
    std::u16string text_;
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
