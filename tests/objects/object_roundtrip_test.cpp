// Object texts read and written again: what survives unchanged, and where the two sides part.
#include "object_test_support.hpp"
#include "writer_test_support.hpp"

#include <string>

namespace {

using namespace zq::test::objects;
using zq::test::writer::doubles;
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
    static struct {
        char const* text;
        ToJsonMode mode;
    } const texts[] = {
        {R"({"zqdata":[{"p":1,"q":"ab"},{"p":[[1,2]],"q":"cd"}],"zqsize":[1,2],"zqtype":"pkg.Cls"})", Small},
        {R"({"zqdata":[{"p":{"zqdata":[1],"zqsize":[1,1],"zqtype":"double"}},{"p":{"zqdata":[2],"zqsize":[1,1],"zqtype":"double"}}],"zqsize":[2,1],"zqtype":"pkg.Cls"})",
            Large},
        {R"({"zqdata":[],"zqsize":[0,3],"zqtype":"pkg.Cls"})", Small},
        {R"({"zqdata":[{"in":{"zqdata":[{"v":5}],"zqsize":[1,1],"zqtype":"pkg.In"}}],"zqsize":[1,1],"zqtype":"pkg.Out"})", Small},
        {R"({"zqdata":[{"p":1,"zqtype":"pkg.A"},{"q":[[1,2]],"zqtype":"pkg.B"}],"zqsize":[2,1],"zqtype":"zorbal.mixin.Heterogeneous"})", Small},
        {R"({"zqdata":[{"p":{"zqdata":["x"],"zqsize":[1,1],"zqtype":"char"},"zqtype":"pkg.A"}],"zqsize":[1,1],"zqtype":"zorbal.mixin.Heterogeneous"})",
            Large},
        {R"({"zqdata":[],"zqsize":[0,0],"zqtype":"zorbal.mixin.Heterogeneous"})", Large},
        {R"({"zqdata":{"p":[[1,2],[3,4]]},"zqmetadata":{"r":"abc"},"zqsize":[2,2],"zqtype":"pkg.Cls"})", Small},
        {R"({"zqdata":{"p":{"zqdata":[1,2],"zqsize":[2,1],"zqtype":"double"}},"zqsize":[2,1],"zqtype":"pkg.Cls"})", Large},
        {R"({"zqdata":[],"zqsize":[0,0],"zqtype":"pkg.Color"})", Small},
    };
    for (auto const& c : texts)
        EXPECT_EQ(written(read(c.text), c.mode), c.text);
    EXPECT_EQ(contents(read(R"({"zqdata":[],"zqsize":[0,0],"zqtype":"pkg.Color"})")), "pkg.Color() 0x0 []");
}

// The writer knows no zqhandle: one id's handle is written once for each element that holds it, by its
// value, and the text reads back as plain value objects.
TEST(ObjectRoundTrip, HandlesComeBackAsValueObjects)
{
    std::string const text = written(read(R"({"zqdata":[{"p":1},{"p":2}],"zqhandle":{"zqkvxID":"5","zqobjectID":["7","7"]},)"
                                          R"("zqsize":[1,2],"zqtype":"pkg.H"})"),
        Small);
    EXPECT_EQ(text, R"({"zqdata":[{"p":1},{"p":1}],"zqsize":[1,2],"zqtype":"pkg.H"})");
    EXPECT_EQ(contents(read(text)), "pkg.H(p) 1x2 [{p=1}, {p=1}]");
}

// Only the reader counts a property against the external dimensions.
TEST(ObjectRoundTrip, StandingForPropertiesCountedOnTheWayBack)
{
    std::string const three = written(standing_for({2, 2}, "pkg.Cls", {{"p", doubles({1, 3}, {1, 2, 3})}}, {}), Small);
    EXPECT_EQ(three, R"({"zqdata":{"p":[[1,2,3]]},"zqsize":[2,2],"zqtype":"pkg.Cls"})");
    EXPECT_THROW_WHAT(read(three), zj::MismatchedZQSize, mismatched_size);
    std::string const four = written(standing_for({2, 2}, "pkg.Cls", {{"p", doubles({1, 4}, {1, 2, 3, 4})}}, {}), Small);
    EXPECT_EQ(contents(read(four)), "pkg.Cls() 1x1 ext 2x2 [{p=1x4(1 2 3 4)}]");
}

} // namespace
