// How deep a tree the readers take: every document of the text reader, and no deeper tree of a caller.
#include "reader_support.hpp"

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

// The object of one property p holding value.
fj::Object object_of(fj::Value value)
{
    fj::Object object;
    object.emplace("p", std::move(value));
    return object;
}

// value inside levels JSON arrays, or inside levels 1-by-1 large forms of type whose data are the one-element
// list of the level below (a cell), or that level's object of one property p (an object of class type).
fj::Value nested(std::size_t levels, char const* type = nullptr, bool listed = true, fj::Value value = fj::Value(1.0))
{
    for (std::size_t i = 0; i < levels; ++i) {
        if (!type)
            value = fj::Value(list_of(std::move(value)));
        else if (listed)
            value = large_form(type, {1, 1}, list_of(std::move(value)));
        else
            value = large_form(type, {1, 1}, object_of(std::move(value)));
    }
    return value;
}

TEST(NestingDepth, ReadsTheDeepestDocumentOfTheTextReader)
{
    EXPECT_EQ(read(std::string(1000, '[') + "1" + std::string(1000, ']')).getDimensions(), Dims(1000, 1));
    std::string cells = "1";
    for (int i = 0; i < 500; ++i)
        cells = lf("cell", "[1,1]", "[" + cells + "]");
    EXPECT_EQ(read(cells).getType(), zd::ArrayType::CELL);
    std::string objects = "1";
    for (int i = 0; i < 1000; ++i)
        objects = R"({"a":)" + objects + "}";
    EXPECT_EQ(read(objects).getType(), zd::ArrayType::STRUCT);
    // Each entry leaves the levels it entered, so siblings do not add up.
    fj::Array entries;
    for (int i = 0; i < 3; ++i)
        entries.push_back(nested(998));
    EXPECT_EQ(read_tree(large_form("cell", {1, 3}, std::move(entries))).getDimensions(), (Dims {1, 3}));
}

// A cell is two levels, its object and its list, as are a struct's object of fields and a field's list.
// Objects skip a property they cannot read and try a list when an object fails, but depth is no such
// failure: a deep tree below a single object or a list of objects is refused, not cut off. Far deeper
// than any stack could recurse, trees are refused at the limit too.
TEST(NestingDepth, RefusesOneLevelMore)
{
    fj::Object fields;
    fields.emplace("a", list_of(nested(998)));
    fj::Value element(1.0);
    for (int i = 0; i < 400; ++i)
        element = large_form("pkg.Cls", {1, 1}, list_of(fj::Value(object_of(std::move(element)))));
    fj::Value const trees[] = {nested(1001), nested(501, "cell"), large_form("cell", {1, 1}, list_of(nested(999))),
        large_form("struct", {1, 1}, std::move(fields)), nested(600, "pkg.Cls", false), std::move(element),
        nested(200000), nested(100000, "cell")};
    for (fj::Value const& tree : trees)
        EXPECT_THROW_WHAT(read_tree(tree), NestingTooDeep, too_deep) << &tree - trees;
}

} // namespace
