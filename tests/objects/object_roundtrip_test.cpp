// Object texts read and written again: what survives unchanged, and where the two sides part.
#include "object_test_support.hpp"
#include "writer_test_support.hpp"

#include <string>

namespace {

using namespace zq::test::objects;
using zq::test::writer::doubles;
using zq::test::writer::large;
using zq::test::writer::ToJsonMode;
using enum ToJsonMode;

std::string written(zd::Array const& array, ToJsonMode mode)
{
    EXPECT_TRUE(zq::test::same_on_both_roads(array, mode, zj::NanType::String, zd::ObjectFilter::AllowAll));
    return zd::json::zorbaldata_to_string(array, mode, zj::NanType::String, zd::ObjectFilter::AllowAll);
}

// An empty enumeration is read as an empty value object array of its class, which writes the same text.
TEST(ObjectRoundTrip, TextComesBackUnchanged)
{
    std::string const mixed = "zorbal.mixin.Heterogeneous";
    auto const dbl = [](char const* v) { return large("double", "[1,1]", std::string("[") + v + "]"); };
    struct {
        std::string text;
        ToJsonMode mode;
    } const texts[] = {
        {large("pkg.Cls", "[1,2]", R"([{"p":1,"q":"ab"},{"p":[[1,2]],"q":"cd"}])"), Small},
        {large("pkg.Cls", "[2,1]", R"([{"p":)" + dbl("1") + R"(},{"p":)" + dbl("2") + "}]"), Large},
        {large("pkg.Cls", "[0,3]", "[]"), Small},
        {large(mixed, "[2,1]", R"([{"p":1,"zqtype":"pkg.A"},{"q":[[1,2]],"zqtype":"pkg.B"}])"), Small},
        {large(mixed, "[1,1]", R"([{"p":)" + large("char", "[1,1]", R"(["x"])") + R"(,"zqtype":"pkg.A"}])"),
            Large},
        {large(mixed, "[0,0]", "[]"), Large},
        {R"({"zqdata":{"p":[[1,2],[3,4]]},"zqmetadata":{"r":"abc"},"zqsize":[2,2],"zqtype":"pkg.Cls"})",
            Small},
        {large("pkg.Cls", "[2,1]", R"({"p":{"zqdata":[1,2],"zqsize":[2,1],"zqtype":"double"}})"), Large},
        {large("pkg.Color", "[0,0]", "[]"), Small},
    };
    for (auto const& c : texts)
        EXPECT_EQ(written(read(c.text), c.mode), c.text);
    EXPECT_EQ(contents(read(large("pkg.Color", "[0,0]", "[]"))), "pkg.Color() 0x0 []");
}

// The writer knows no zqhandle: one id's handle is written once for each element that holds it, by its
// value, and the text reads back as plain value objects.
TEST(ObjectRoundTrip, HandlesComeBackAsValueObjects)
{
    std::string const text = written(read(R"({"zqdata":[{"p":1},{"p":2}],)"
                                          R"("zqhandle":{"zqkvxID":"5","zqobjectID":["7","7"]},)"
                                          R"("zqsize":[1,2],"zqtype":"pkg.H"})"),
        Small);
    EXPECT_EQ(text, R"({"zqdata":[{"p":1},{"p":1}],"zqsize":[1,2],"zqtype":"pkg.H"})");
    EXPECT_EQ(contents(read(text)), "pkg.H(p) 1x2 [{p=1}, {p=1}]");
}

// Only the reader counts a property against the external dimensions.
TEST(ObjectRoundTrip, StandingForPropertiesCountedOnTheWayBack)
{
    auto const standing_for_p
        = [](zd::Array p) { return written(standing_for({2, 2}, "pkg.Cls", {{"p", p}}, {}), Small); };
    std::string const three = standing_for_p(doubles({1, 3}, {1, 2, 3}));
    EXPECT_EQ(three, R"({"zqdata":{"p":[[1,2,3]]},"zqsize":[2,2],"zqtype":"pkg.Cls"})");
    EXPECT_THROW_WHAT(read(three), zj::MismatchedZQSize, mismatched_size);
    EXPECT_EQ(contents(read(standing_for_p(doubles({1, 4}, {1, 2, 3, 4})))),
        "pkg.Cls() 1x1 ext 2x2 [{p=1x4(1 2 3 4)}]");
}

} // namespace
