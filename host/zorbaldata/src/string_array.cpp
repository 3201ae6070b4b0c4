// String arrays, and the references to their elements.
#include "string_array.hpp"

#include "size_limits.hpp"
#include "type_names.hpp"

#include <foundation/zorbaldata/exceptions.hpp>
#include <foundation/zorbaldata/reference.hpp>

#include <algorithm>
#include <new>
#include <string>

namespace zorbal::data::detail {

namespace fz = foundation::zorbaldata;

StringArrayImpl::StringArrayImpl(Dimensions dimensions)
    : ArrayImpl(fz::ArrayType::STRING, dimensions),
      slots_(count(), [this] { return fz::detail::arrayText(type(), this->dimensions()); })
{
}

StringArrayImpl::StringArrayImpl(StringArrayImpl const& other)
    : ArrayImpl(other),
      arena_(other.arena_ ? std::make_shared<StringArena>(other.arena_) : nullptr),
      slots_(other.slots_, [this] { return fz::detail::arrayText(type(), dimensions()); })
{
}

void StringArrayImpl::storeText(unsigned long index, std::u16string_view text)
{
    StringArena* arena = nullptr;
    if (index >= slots_.extent() && count() >= fewest_for_arena) {
        if (!arena_)
            arena_ = std::make_shared<StringArena>();
        arena = arena_.get();
    }
    slots_.store(index, StringRecord::make(text, arena));
}

StringRecord* StringRecord::make(std::u16string_view text, StringArena* arena)
{
    constexpr std::size_t header = sizeof(StringRecord) / sizeof(char16_t);
    static_assert(sizeof(StringRecord) % sizeof(char16_t) == 0);
    static_assert(alignof(StringRecord) <= alignof(void*), "the arena aligns as a pointer");
    void* block = nullptr;
    // A text too long for the size of a block in bytes is left to the allocation below, which refuses it.
    if (arena && text.size() < StringArena::largest_block)
        block = arena->allocate((header + text.size()) * sizeof(char16_t));
    bool const inArena = block != nullptr;
    if (!inArena)
        block = fz::detail::allocateUninitialized(header + text.size(), sizeof(char16_t),
            [&] { return "a string of " + std::to_string(text.size()) + " code units"; });
    auto* const record = new (block) StringRecord(text.size());
    std::copy(text.begin(), text.end(), record->units());
    if (inArena)
        record->makeImmortal();
    return record;
}

bool StringArrayImpl::sameContent(ArrayImpl const& other) const
{
    auto const& that = static_cast<StringArrayImpl const&>(other);
    unsigned long const written = std::max(slots_.extent(), that.slots_.extent());
    for (unsigned long i = 0; i < written; ++i) {
        StringRecord const* a = at(i);
        StringRecord const* b = that.at(i);
        if (a != b && (!a || !b || a->text() != b->text()))
            return false;
    }
    return true;
}

} // namespace zorbal::data::detail

namespace foundation::zorbaldata {

namespace {

zorbal::data::detail::StringRecord const* record(zorbal::data::detail::ReferenceImpl const& place)
{
    return static_cast<zorbal::data::detail::StringArrayImpl const*>(place.owner)->at(place.index);
}

} // namespace

bool Reference<zorbal::data::optional<std::u16string> const>::has_value() const
{
    return record(impl_) != nullptr;
}

Reference<zorbal::data::optional<std::u16string> const>::operator std::u16string() const
{
    auto const* text = record(impl_);
    if (!text)
        throw EMissingValue("The string element is missing.");
    return std::u16string(text->text());
}

std::u16string_view Reference<zorbal::data::optional<std::u16string> const>::view() const
{
    auto const* text = record(impl_);
    return text ? text->text() : std::u16string_view();
}

zorbal::data::optional<std::u16string> Reference<zorbal::data::optional<std::u16string> const>::value() const
{
    auto const* text = record(impl_);
    return text ? zorbal::data::optional<std::u16string>(std::u16string(text->text()))
                : zorbal::data::optional<std::u16string>();
}

void Reference<zorbal::data::optional<std::u16string>>::set(zorbal::data::optional<std::u16string> text) const
{
    auto* strings = static_cast<zorbal::data::detail::StringArrayImpl*>(impl_.owner);
    if (text)
        strings->storeText(impl_.index, *text);
    else
        strings->storeMissing(impl_.index);
}

void Reference<zorbal::data::optional<std::u16string>>::setText(std::u16string_view text) const
{
    static_cast<zorbal::data::detail::StringArrayImpl*>(impl_.owner)->storeText(impl_.index, text);
}

} // namespace foundation::zorbaldata

