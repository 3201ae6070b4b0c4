// How deep a tree the readers take: every document of the text reader, and no deeper tree of a caller.
#include "reader_support.hpp"

#include <frontend/detail/parse_error.hpp>

#include <stdexcept>
#include <string>
#include <utility>

namespace {

using namespace zq::test;

std::string const too_deep = "JSON nested deeper than 1000 levels cannot be read";

// The one-element list of value; moved, as a braced list would copy the whole tree below it.
fj::Array list_of(fj::Value value)
{
    fj::Array list;
    list.push_back(std::move(value));
    return list;
}

// A number inside levels JSON arrays.
fj::Value nested_arrays(std::size_t levels)
{
    fj::Value value(1.0);
    for (std::size_t i = 0; i < levels; ++i)
        value = fj::Value(list_of(std::move(value)));
    return value;
}

// A number inside cells 1-by-1 cells; each cell is two levels, its object and its list.
fj::Value nested_cells(std::size_t cells)
{
    fj::Value value(1.0);
    for (std::size_t i = 0; i < cells; ++i)
        value = large_form("cell", { 1, 1 }, list_of(std::move(value)));
    return value;
}

TEST(NestingDepth, ReadsTheDeepestDocumentOfTheTextReader)
{
    std::string const arrays = std::string(1000, '[') + "1" + std::string(1000, ']');
    EXPECT_EQ(read(arrays).getDimensions(), Dims(1000, 1));

    std::string cells = "1";
    for (int i = 0; i < 500; ++i)
        cells = R"({"zqtype":"cell","zqsize":[1,1],"zqdata":[)" + cells + "]}";
    EXPECT_EQ(read(cells).getType(), zd::ArrayType::CELL);

    std::string objects = "1";
    for (int i = 0; i < 1000; ++i)
        objects = R"({"a":)" + objects + "}";
    EXPECT_EQ(read(objects).getType(), zd::ArrayType::STRUCT);
}

TEST(NestingDepth, RefusesOneLevelMore)
{
    EXPECT_THROW_WHAT(read_tree(nested_arrays(1001)), foundation::zorbaljson::NestingTooDeep, too_deep);
    EXPECT_THROW_WHAT(read_tree(nested_cells(501)), foundation::zorbaljson::NestingTooDeep, too_deep);
    EXPECT_THROW_WHAT(
        read_tree(large_form("cell", { 1, 1 }, list_of(nested_arrays(999)))), foundation::zorbaljson::NestingTooDeep, too_deep);
    // A struct's object of fields and a field's list are two levels.
    fj::Object fields;
    fields.emplace("a", list_of(nested_arrays(998)));
    EXPECT_THROW_WHAT(read_tree(large_form("struct", { 1, 1 }, std::move(fields))),
        foundation::zorbaljson::NestingTooDeep, too_deep);
}

// Objects skip a property they cannot read and try a list when an object fails, but depth is no such
// failure: a deep tree below a single object or a list of objects is refused, not cut off.
TEST(NestingDepth, ObjectsRefuseRatherThanCutOff)
{
    fj::Value single(1.0);
    for (int i = 0; i < 600; ++i) {
        fj::Object properties;
        properties.emplace("p", std::move(single));
        single = large_form("pkg.Cls", { 1, 1 }, std::move(properties));
    }
    EXPECT_THROW_WHAT(read_tree(std::move(single)), foundation::zorbaljson::NestingTooDeep, too_deep);

    fj::Value listed(1.0);
    for (int i = 0; i < 400; ++i) {
        fj::Object element;
        element.emplace("p", std::move(listed));
        listed = large_form("pkg.Cls", { 1, 1 }, list_of(fj::Value(std::move(element))));
    }
    EXPECT_THROW_WHAT(read_tree(std::move(listed)), foundation::zorbaljson::NestingTooDeep, too_deep);
}

// Far deeper than any stack could recurse: refused at the limit instead.
TEST(NestingDepth, RefusesCallerTreesOfAnyDepth)
{
    EXPECT_THROW_WHAT(read_tree(nested_arrays(200000)), foundation::zorbaljson::NestingTooDeep, too_deep);
    EXPECT_THROW_WHAT(read_tree(nested_cells(100000)), foundation::zorbaljson::NestingTooDeep, too_deep);
}

// Each entry leaves the levels it entered, so siblings do not add up.
TEST(NestingDepth, SiblingsDoNotAddUp)
{
    fj::Array entries;
    for (int i = 0; i < 3; ++i)
        entries.push_back(nested_arrays(998));
    EXPECT_EQ(read_tree(large_form("cell", { 1, 3 }, std::move(entries))).getDimensions(), (Dims { 1, 3 }));
}

} // namespace
