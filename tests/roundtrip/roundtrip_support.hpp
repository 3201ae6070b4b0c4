// What the round-trip tests share: the settings of the writers, the two ways back from an array, and
// floating elements as bits.
#pragma once

#include "writer_test_support.hpp"

#include <reading_paths.hpp>

#include <cstdint>
#include <string>
#include <vector>

namespace zq::test::roundtrip {

using namespace zq::test::writer;

// One of the four settings of the writers that shape the text.
struct Setting {
    ToJsonMode mode;
    NanType nan;
};

inline constexpr Setting settings[] = {
    {ToJsonMode::Large, NanType::String},
    {ToJsonMode::Large, NanType::Object},
    {ToJsonMode::Small, NanType::String},
    {ToJsonMode::Small, NanType::Object},
};

std::string describe(Setting setting);

// How a written array is read back: from its compact text, or from the value tree itself.
enum class Path { Text, Tree };

// The text of array as the writers make it under the setting, every object class allowed.
std::string text_of(zd::Array const& array, Setting setting);

// The array read back from what the writers make of array under the setting, by the path.
zd::Array written_and_read(zd::Array const& array, Setting setting, Path path);

// The bits of every floating part of array in storage order (real part before imaginary part; sparse
// values in their stored order; cell elements and, by ascending field name, struct fields included),
// floats widened bit for bit. Equality of arrays cannot tell -0.0 from 0.0 or one NaN from another.
// as_read spells every NaN as the readers make it: the writers spell all NaNs alike.
std::vector<std::uint64_t> floating_bits(zd::Array const& array, bool as_read = false);

// Fails unless back has the type, the dimensions, the elements and the floating bits of expected.
void expect_same(zd::Array const& back, zd::Array const& expected);

} // namespace zq::test::roundtrip
