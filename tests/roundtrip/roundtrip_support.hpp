// What the round-trip tests share: the settings of the writers, and the two ways back from an array.
#pragma once

#include "writer_test_support.hpp"

#include <reading_paths.hpp>

#include <string>

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

// Fails unless back has the type, the dimensions and the elements of expected, and the same text under
// the setting: equality of arrays cannot tell -0.0 from 0.0.
void expect_same(zd::Array const& back, zd::Array const& expected, Setting setting);

} // namespace zq::test::roundtrip
