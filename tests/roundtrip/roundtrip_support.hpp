// What the round-trip tests share: the settings of the writers, and the two ways back from an array.
#pragma once

#include "writer_test_support.hpp"

#include <foundation/zorbaldata/json/json_to_zorbaldata.hpp>
#include <reading_paths.hpp>

#include <string>

namespace zq::test::roundtrip {

using namespace zq::test::writer;

// One of the four settings of the writers that shape the text.
struct Setting {
    ToJsonMode mode;
    NanType nan;
};

inline constexpr Setting settings[]
    = {{ToJsonMode::Large, NanType::String}, {ToJsonMode::Large, NanType::Object},
        {ToJsonMode::Small, NanType::String}, {ToJsonMode::Small, NanType::Object}};

inline std::string describe(Setting setting)
{
    return std::string(setting.mode == ToJsonMode::Large ? "Large" : "Small")
        + (setting.nan == NanType::String ? ", NanType String" : ", NanType Object");
}

// The text of array as the writers make it under the setting, every object class allowed.
inline std::string text_of(zd::Array const& array, Setting setting)
{
    EXPECT_TRUE(same_on_both_roads(array, setting.mode, setting.nan, zd::ObjectFilter::AllowAll));
    return zd::json::zorbaldata_to_string(array, setting.mode, setting.nan, zd::ObjectFilter::AllowAll);
}

// How a written array is read back: from its compact text, or from the value tree itself.
enum class Path { Text, Tree };

// The array read back from what the writers make of array under the setting, by the path.
inline zd::Array written_and_read(zd::Array const& array, Setting setting, Path path)
{
    if (path == Path::Text)
        return read_both_ways(text_of(array, setting));
    zd::ArrayFactory factory;
    return zd::json::json_to_zorbaldata(
        zd::json::zorbaldata_to_json(array, setting.mode, setting.nan, zd::ObjectFilter::AllowAll), factory);
}

// Fails unless back has the type, the dimensions and the elements of expected, and the same text under
// the setting: equality of arrays cannot tell -0.0 from 0.0.
inline void expect_same(zd::Array const& back, zd::Array const& expected, Setting setting)
{
    EXPECT_EQ(back.getType(), expected.getType());
    EXPECT_EQ(back.getDimensions(), expected.getDimensions());
    EXPECT_TRUE(back == expected);
    EXPECT_EQ(text_of(back, setting), text_of(expected, setting));
}

} // namespace zq::test::roundtrip
