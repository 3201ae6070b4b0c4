// What the round-trip tests share.
#include "roundtrip_support.hpp"

#include <foundation/zorbaldata/json/json_to_zorbaldata.hpp>

namespace zq::test::roundtrip {

std::string describe(Setting setting)
{
    return std::string(setting.mode == ToJsonMode::Large ? "Large" : "Small") + ", NanType "
        + (setting.nan == NanType::String ? "String" : "Object");
}

std::string text_of(zd::Array const& array, Setting setting)
{
    EXPECT_TRUE(same_on_both_roads(array, setting.mode, setting.nan, zd::ObjectFilter::AllowAll));
    return zd::json::zorbaldata_to_string(array, setting.mode, setting.nan, zd::ObjectFilter::AllowAll);
}

zd::Array written_and_read(zd::Array const& array, Setting setting, Path path)
{
    if (path == Path::Text)
        return read_both_ways(text_of(array, setting));
    zd::ArrayFactory factory;
    return zd::json::json_to_zorbaldata(
        zd::json::zorbaldata_to_json(array, setting.mode, setting.nan, zd::ObjectFilter::AllowAll), factory);
}

void expect_same(zd::Array const& back, zd::Array const& expected, Setting setting)
{
    EXPECT_EQ(back.getType(), expected.getType());
    EXPECT_EQ(back.getDimensions(), expected.getDimensions());
    EXPECT_TRUE(back == expected);
    EXPECT_EQ(text_of(back, setting), text_of(expected, setting));
}

} // namespace zq::test::roundtrip
