// Cell and struct arrays: what they contain is written by the same variant, at every depth.
#include "expect_throw.hpp"
#include "writer_test_support.hpp"

#include <foundation/zorbaldata/json/convert_error.hpp>
#include <foundation/zorbaldata/json/detail/cell_writer.hpp>
#include <foundation/zorbaldata/json/detail/struct_writer.hpp>
#include <foundation/zorbaldata/json/detail/to_json.hpp>

#include <stdexcept>

namespace {

using namespace zq::test::writer;
using enum ToJsonMode;
using enum NanType;
using foundation::zorbaldata::json::detail::write_array;

constexpr auto large_writer = [](zd::Array array, auto& out) {
    write_array<Large, String, zd::ObjectFilter::AllowAll>(std::move(array), out);
};
constexpr auto small_writer = [](zd::Array array, auto& out) {
    write_array<Small, String, zd::ObjectFilter::AllowAll>(std::move(array), out);
};

zd::Array oneAndAbc()
{
    return cell({1, 2}, {scalar(1), charRow(u"abc")});
}

static WriteCase const cellForms[] = {
    {"EmptyUnderSmall", [] { return cell({0, 0}, {}); }, Small, String,
        R"({"zqdata":[],"zqsize":[0,0],"zqtype":"cell"})"},
    {"ScalarElementUnderSmall", [] { return cell({1, 1}, {scalar(1)}); }, Small, String,
        R"({"zqdata":[1],"zqsize":[1,1],"zqtype":"cell"})"},
    {"ElementsUnderSmall", oneAndAbc, Small, String, R"({"zqdata":[1,"abc"],"zqsize":[1,2],"zqtype":"cell"})"},
    {"ElementsUnderLarge", oneAndAbc, Large, String,
        R"({"zqdata":[{"zqdata":[1],"zqsize":[1,1],"zqtype":"double"},{"zqdata":["abc"],"zqsize":[1,3],"zqtype":"char"}],"zqsize":[1,2],"zqtype":"cell"})"},
    {"UnsetElementsAreEmptyDoubles", [] { return cell({1, 2}, {}); }, Small, String,
        R"({"zqdata":[[],[]],"zqsize":[1,2],"zqtype":"cell"})"},
    {"CellInCellUnderSmall", [] { return cell({1, 1}, {cell({1, 1}, {scalar(5)})}); }, Small, String,
        R"({"zqdata":[{"zqdata":[5],"zqsize":[1,1],"zqtype":"cell"}],"zqsize":[1,1],"zqtype":"cell"})"},
};

zd::Array aIsOneBIsAbc()
{
    return structs({1, 1}, {{"a", {scalar(1)}}, {"b", {charRow(u"abc")}}});
}

zd::Array column()
{
    return structs({2, 1},
        {{"a", {scalar(1), scalar(2)}}, {"b", {charRow(u"x"), charRow(u"y")}}});
}

static WriteCase const structForms[] = {
    {"ScalarIsPlainObjectUnderSmall", aIsOneBIsAbc, Small, String, R"({"a":1,"b":"abc"})"},
    {"ScalarUnderLarge", aIsOneBIsAbc, Large, String,
        R"({"zqdata":{"a":[{"zqdata":[1],"zqsize":[1,1],"zqtype":"double"}],"b":[{"zqdata":["abc"],"zqsize":[1,3],"zqtype":"char"}]},"zqsize":[1,1],"zqtype":"struct"})"},
    {"ColumnUnderSmall", column, Small, String,
        R"({"zqdata":{"a":[1,2],"b":["x","y"]},"zqsize":[2,1],"zqtype":"struct"})"},
    {"FieldsWalkedOneAfterAnother",
        [] {
            return structs({1, 3},
                {{"b", {scalar(1), scalar(2), scalar(3)}}, {"a", {scalar(4), scalar(5), scalar(6)}}});
        },
        Small, String, R"({"zqdata":{"a":[4,5,6],"b":[1,2,3]},"zqsize":[1,3],"zqtype":"struct"})"},
    {"EmptyWithoutFieldsUnderSmall", [] { return structs({0, 0}, {}); }, Small, String, "{}"},
    {"EmptyWithFieldsUnderSmall", [] { return structs({0, 0}, {{"a", {}}, {"b", {}}}); }, Small, String,
        R"({"zqdata":{"a":[],"b":[]},"zqsize":[0,0],"zqtype":"struct"})"},
    {"ColumnWithoutFieldsUnderSmall", [] { return structs({2, 1}, {}); }, Small, String,
        R"({"zqdata":{},"zqsize":[2,1],"zqtype":"struct"})"},
    {"ReservedFieldNameNotEscaped", [] { return structs({1, 1}, {{"zqtype", {charRow(u"x")}}}); },
        Small, String, R"({"zqtype":"x"})"},
    {"StructInStructUnderSmall",
        [] { return structs({1, 1}, {{"s", {structs({1, 1}, {{"a", {scalar(1)}}})}}}); }, Small, String, R"({"s":{"a":1}})"},
};

TEST(CellWriter, Forms)
{
    expect_writes(cellForms);
}

// Nothing wraps the failure of what a container holds, at any depth.
TEST(CellWriter, FailureOfAnElementPassesUnwrapped)
{
    zd::Array const deep = cell({1, 1}, {structs({1, 1}, {{"a", {scalar(1)}}, {"b", {doubles({2}, {1, 2})}}})});
    EXPECT_THROW_WHAT(write(deep, Small), std::runtime_error, "Must have at least two dimensions");
    zd::Array const handle = cell({1, 1}, {factory.createArray(zd::ArrayType::HANDLE_OBJECT_REF, {1, 1})});
    EXPECT_THROW_WHAT(write(handle, Large), zd::ObjectNotSupportedException,
        "Serializing handle object as reference is not supported for JSON.");
}

// A scalar inside levels - 1 cells: levels arrays in all.
zd::Array nested_cells(int levels)
{
    zd::Array nested = scalar(1);
    for (int level = 1; level < levels; ++level)
        nested = cell({1, 1}, {nested});
    return nested;
}

TEST(CellWriter, WritesAThousandLevelsAndRefusesMore)
{
    EXPECT_NO_THROW(write(nested_cells(1000), Large));
    EXPECT_THROW_WHAT(write(nested_cells(1001), Small), zd::json::ArrayNestingTooDeep,
        "Arrays nested deeper than 1000 levels cannot be written");
    EXPECT_THROW(write(nested_cells(100000), Large), zd::json::ArrayNestingTooDeep);
}

TEST(CellWriter, ElementsThatDisagreeWithTheDimensionsAreRefused)
{
    using foundation::zorbaldata::json::detail::write_cell;
    zd::Array const two = oneAndAbc();
    EXPECT_THROW_WHAT(built([&](auto& out) {
        write_cell(out, Dims { 2, 2 }, zd::getReadOnlyElements<zd::Array>(two), large_writer);
    }),
        std::runtime_error, "Number of elements did not match specified dimensions");
}

TEST(StructWriter, Forms)
{
    expect_writes(structForms);
}

// The walk runs on from field to field, so a count larger than the elements starves the last field.
TEST(StructWriter, FieldsThatRunOutAreRefused)
{
    using foundation::zorbaldata::json::detail::write_plain_object;
    using foundation::zorbaldata::json::detail::write_struct_large;
    zd::StructArray const row(
        structs({1, 2}, {{"a", {scalar(1), scalar(2)}}, {"b", {scalar(3), scalar(4)}}}));
    EXPECT_THROW_WHAT(built([&](auto& out) {
        write_struct_large(out, Dims { 2, 2 }, row, small_writer);
    }),
        std::runtime_error, "Number of elements for field b did not match specified dimensions");
    EXPECT_THROW_WHAT(built([&](auto& out) { write_struct_large(out, Dims { 4 }, row, small_writer); }),
        std::runtime_error, "Must have at least two dimensions");
    EXPECT_THROW_WHAT(built([&](auto& out) { write_plain_object(out, row, small_writer); }),
        std::runtime_error, "Number of fieldnames does not match number of elements");
}

} // namespace
