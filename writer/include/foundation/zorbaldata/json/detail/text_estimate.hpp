// How much text an array is likely to take, so that the text can be reserved once.
#pragma once

#include <foundation/zorbaldata/array.hpp>

#include <cstddef>

namespace foundation::zorbaldata::json::detail {

/// An estimate of the bytes of the compact JSON text of array: for numbers and logicals the most an
/// element can take, so that their text never outgrows it; strings, cells and structs by what they
/// hold, walked down to a few levels; for the other kinds a guess. Never more than 256 MiB, whatever
/// the array claims.
std::size_t estimated_text_size(Array const& array) noexcept;

} // namespace foundation::zorbaldata::json::detail
