// Enumeration arrays: member names under the class name, in the large form under both modes.
#include "expect_throw.hpp"
#include "writer_test_support.hpp"

#include <foundation/zorbaldata/json/detail/enum_writer.hpp>

#include <stdexcept>

namespace {

using namespace zq::test::writer;
using enum ToJsonMode;
using enum NanType;

zd::Array redAndBlue()
{
    return enums({1, 2}, "pkg.Color", {"red", "blue"});
}

static WriteCase const enumForms[] = {
    {"MemberNamesUnderClassName", redAndBlue, Large, String,
        R"({"zqdata":["red","blue"],"zqsize":[1,2],"zqtype":"pkg.Color"})"},
    {"SameUnderSmall", redAndBlue, Small, Object, R"({"zqdata":["red","blue"],"zqsize":[1,2],"zqtype":"pkg.Color"})"},
    {"EmptyKeepsClassName", [] { return enums({0, 0}, "pkg.Color", {}); }, Small, String,
        R"({"zqdata":[],"zqsize":[0,0],"zqtype":"pkg.Color"})"},
    {"UnsetMemberIsEmptyName", [] { return enums({1, 1}, "pkg.Color", {}); }, Large, String,
        R"({"zqdata":[""],"zqsize":[1,1],"zqtype":"pkg.Color"})"},
};

TEST(EnumWriter, Forms)
{
    expect_writes(enumForms);
}

TEST(EnumWriter, ElementsThatDisagreeWithTheDimensionsAreRefused)
{
    using foundation::zorbaldata::json::detail::write_enum;
    zd::Array const two = redAndBlue();
    EXPECT_THROW_WHAT(built([&](auto& out) {
        write_enum(out, Dims { 1, 3 }, "pkg.Color", zd::getReadOnlyElements<zd::Enumeration>(two));
    }),
        std::runtime_error, "Number of elements did not match specified dimensions");
}

} // namespace
