// The checks that refuse an array too large to count or to hold before anything is allocated.
#pragma once

#include <foundation/zorbaldata/array_type.hpp>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string>

namespace foundation::zorbaldata::detail {

/// Throws EArrayTooLarge with "Cannot create <subject>: <reason>.".
[[noreturn]] void refuseSize(std::string const& subject, std::string const& reason);

/// The product of the dimensions (1 for none). @throws EArrayTooLarge when it does not fit.
unsigned long elementCount(ArrayType type, std::span<unsigned long const> dimensions);

/// a * b. @throws EArrayTooLarge, about subject(), when it does not fit.
template <typename Subject>
unsigned long checkedProduct(unsigned long a, unsigned long b, Subject const& subject)
{
    unsigned long product = 0;
    if (__builtin_mul_overflow(a, b, &product))
        refuseSize(subject(), "its number of elements exceeds " + std::to_string(~0UL));
    return product;
}

/// The bytes of count elements of size bytes. @throws EArrayTooLarge, about subject(), when they
/// exceed what one allocation can hold.
template <typename Subject>
std::size_t byteSize(unsigned long count, std::size_t size, Subject const& subject)
{
    std::size_t bytes = 0;
    if (__builtin_mul_overflow(count, size, &bytes) || bytes > static_cast<std::size_t>(PTRDIFF_MAX))
        refuseSize(subject(), std::to_string(count) + " elements of " + std::to_string(size)
                                  + " bytes exceed the largest possible allocation");
    return bytes;
}

/// Memory for count elements of size bytes that reads as zero bits; the allocator hands out pages
/// that were never touched, so nothing is written until an element is. Null for no elements.
/// @throws EArrayTooLarge, about subject(), when the size overflows or the memory cannot be had.
template <typename Subject>
void* allocateZeroed(unsigned long count, std::size_t size, Subject const& subject)
{
    if (count == 0)
        return nullptr;
    std::size_t const bytes = byteSize(count, size, subject);
    void* memory = std::calloc(count, size);
    if (!memory)
        refuseSize(subject(), "allocating " + std::to_string(bytes) + " bytes failed");
    return memory;
}

/// Memory for count elements of size bytes, not initialised; null for no elements.
/// @throws EArrayTooLarge, about subject(), when the size overflows or the memory cannot be had.
template <typename Subject>
void* allocateUninitialized(unsigned long count, std::size_t size, Subject const& subject)
{
    if (count == 0)
        return nullptr;
    std::size_t const bytes = byteSize(count, size, subject);
    void* memory = std::malloc(bytes);
    if (!memory)
        refuseSize(subject(), "allocating " + std::to_string(bytes) + " bytes failed");
    return memory;
}

} // namespace foundation::zorbaldata::detail
