// What the writers refuse, and how the settings choose a variant or none.
#include "expect_throw.hpp"
#include "writer_test_support.hpp"

#include <foundation/zorbaldata/json/convert_error.hpp>
#include <foundation/zorbaldata/json/detail/array_type_dispatch.hpp>
#include <foundation/zorbaldata/json/detail/cell_writer.hpp>
#include <foundation/zorbaldata/json/detail/element_values.hpp>
#include <foundation/zorbaldata/json/detail/enum_writer.hpp>
#include <foundation/zorbaldata/json/detail/numeric_writer.hpp>
#include <foundation/zorbaldata/json/detail/small_form.hpp>
#include <foundation/zorbaldata/json/detail/sparse_writer.hpp>
#include <foundation/zorbaldata/json/detail/string_writer.hpp>
#include <foundation/zorbaldata/json/detail/struct_writer.hpp>
#include <foundation/zorbaldata/json/detail/to_json.hpp>

#include <boost/numeric/conversion/cast.hpp>

#include <cstdint>
#include <limits>
#include <map>
#include <span>
#include <stdexcept>

namespace {

using namespace zq::test::writer;
using enum ToJsonMode;
using enum NanType;
namespace zjd = foundation::zorbaldata::json::detail;
using Out = zjd::tree_output;

char const* const mismatch = "Number of elements did not match specified dimensions";
char const* const too_few = "Must have at least two dimensions";
int const three[] = {1, 2, 3};
bool const two[] = {true, false};
unsigned long const rows[] = {0, 1};
double const values[] = {1, 2};

constexpr zjd::exact_value exact;
constexpr zjd::floating_value<String> floating;

constexpr auto small_writer = [](zd::Array array, auto& out) {
    zjd::write_array<Small, String, zd::ObjectFilter::AllowAll>(std::move(array), out);
};

zd::Array oneAndAbc() { return cell({1, 2}, {scalar(1), charRow(u"abc")}); }
zd::StructArray fieldsOfTwo() { return zd::StructArray(structs({1, 2}, {{"a", {scalar(1), scalar(2)}}, {"b", {scalar(3), scalar(4)}}})); }

// Each writer checks the elements it is handed against the dimensions it is told, and takes no fewer
// than two of them.
TEST(Writer, ElementsThatDisagreeWithTheDimensionsAreRefused)
{
    static struct {
        char const* name;
        void (*write)(Out&);
        char const* text;
    } const cases[] = {
        {"NumericMore", [](Out& out) { zjd::write_numeric(out, Dims{2, 2}, range(three, 3), exact); }, mismatch},
        {"NumericFewer", [](Out& out) { zjd::write_numeric(out, Dims{1, 2}, range(three, 3), exact); }, mismatch},
        {"Nested", [](Out& out) { zjd::nested_form(out, Dims{3, 1}, range(two, 2), exact); }, mismatch},
        {"Scalar", [](Out& out) { zjd::scalar_form(out, range(two, 2), exact); }, mismatch},
        {"SparseValues", [](Out& out) { zjd::write_sparse(out, Dims{2, 2}, rows, rows, range(values, 1), floating); },
            mismatch},
        {"SparseColumns",
            [](Out& out) { zjd::write_sparse(out, Dims{2, 2}, rows, std::span(rows, 1), range(values, 2), floating); },
            mismatch},
        {"SparseOneDimension", [](Out& out) { zjd::write_sparse(out, Dims{4}, rows, rows, range(values, 2), floating); },
            too_few},
        {"Cell",
            [](Out& out) { zjd::write_cell(out, Dims{2, 2}, zd::getReadOnlyElements<zd::Array>(oneAndAbc()), small_writer); },
            mismatch},
        {"Enum",
            [](Out& out) {
                zjd::write_enum(out, Dims{1, 3}, "E", zd::getReadOnlyElements<zd::Enumeration>(enums({1, 2}, "E", {"a", "b"})));
            },
            mismatch},
        {"String",
            [](Out& out) { zjd::write_string(out, Dims{2, 2}, zd::getReadOnlyElements<Text>(strings({1, 2}, {Text(u"a"), Text()}))); },
            mismatch},
        // The walk runs on from field to field, so a count larger than the elements starves the last field.
        {"StructFieldRunsOut", [](Out& out) { zjd::write_struct_large(out, Dims{2, 2}, fieldsOfTwo(), small_writer); },
            "Number of elements for field b did not match specified dimensions"},
        {"StructOneDimension", [](Out& out) { zjd::write_struct_large(out, Dims{4}, fieldsOfTwo(), small_writer); },
            too_few},
        {"PlainObject", [](Out& out) { zjd::write_plain_object(out, fieldsOfTwo(), small_writer); },
            "Number of fieldnames does not match number of elements"},
    };
    for (auto const& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_THROW_WHAT(built(c.write), std::runtime_error, c.text);
    }
    EXPECT_EQ(tagged(built([](Out& out) { zjd::write_numeric(out, Dims{3, 1}, range(three, 3), exact); })),
        R"({"zqdata":[1i,2i,3i],"zqsize":[3,1],"zqtype":"int32"})");
    EXPECT_THROW_WHAT(zjd::nesting_shape({std::numeric_limits<unsigned long>::max(), 2}),
        boost::numeric::positive_overflow, "bad numeric conversion: positive overflow");
}

TEST(Writer, FewerThanTwoDimensionsAreRefusedAtAnyDepth)
{
    // Nothing wraps the failure of what a container holds.
    zd::Array const arrays[] = {doubles({3}, {1, 2, 3}), doubles({}, {1}), logicals({1}, {true}), numbers<short>({1}, {1}),
        chars({3}, u"abc"), strings({1}, {Text(u"a")}), cell({1}, {scalar(1)}), structs({1}, {{"a", {scalar(1)}}}),
        enums({1}, "pkg.E", {"a"}), cell({1, 1}, {structs({1, 1}, {{"a", {scalar(1)}}, {"b", {doubles({2}, {1, 2})}}})})};
    for (zd::Array const& array : arrays)
        for (ToJsonMode const mode : {Large, Small}) {
            SCOPED_TRACE(::testing::Message() << zd::getTypeName(array.getType()) << (mode == Large ? " large" : " small"));
            EXPECT_THROW_WHAT(write(array, mode), std::runtime_error, too_few);
        }
    EXPECT_THROW_WHAT(write(cell({1, 1}, {factory.createArray(zd::ArrayType::HANDLE_OBJECT_REF, {1, 1})}), Large),
        zd::ObjectNotSupportedException, "Serializing handle object as reference is not supported for JSON.");
}

TEST(Writer, TypesThatAreNoArrayTypeAreRefused)
{
    struct any_view {
        int operator()(zd::Array const&) const { return 0; }
    };
    for (int const type : {0, 26, 33, 34, 35, 38, -1, 1000}) {
        SCOPED_TRACE(type);
        EXPECT_THROW_WHAT(zjd::dispatch_on_array_type(static_cast<zd::ArrayType>(type), scalar(1), any_view()),
            zd::EArrayUnknownDataType, "Unknown DataType field in zorbal::data::Array.");
    }
}

// A scalar inside levels - 1 cells: levels arrays in all.
zd::Array nested_cells(int levels)
{
    zd::Array nested = scalar(1);
    for (int level = 1; level < levels; ++level)
        nested = cell({1, 1}, {nested});
    return nested;
}

TEST(Writer, WritesAThousandLevelsAndRefusesMore)
{
    EXPECT_NO_THROW(write(nested_cells(1000), Large));
    EXPECT_THROW_WHAT(write(nested_cells(1001), Small), zd::json::ArrayNestingTooDeep,
        "Arrays nested deeper than 1000 levels cannot be written");
    zd::Array const deep = nested_cells(100000);
    EXPECT_TRUE(zq::test::same_on_both_roads(deep, Large, String, zd::ObjectFilter::AllowAll));
    EXPECT_THROW(zd::json::zorbaldata_to_json(deep, Large, String, zd::ObjectFilter::AllowAll), zd::json::ArrayNestingTooDeep);
}

// A cell of a double NaN and a single NaN tells all four combinations of mode and NanType apart, and
// shows that the elements are written by the same variant as the cell. Settings out of range give
// Undefined without reading the array.
TEST(Writer, ExactSettingsSelectTheVariant)
{
    std::map<std::pair<int, int>, std::string> const expected = {
        {{0, 0}, R"({"zqdata":[{"zqdata":["NaN"],"zqsize":[1,1],"zqtype":"double"},{"zqdata":["NaN"],"zqsize":[1,1],"zqtype":"single"}],"zqsize":[1,2],"zqtype":"cell"})"},
        {{0, 1}, R"({"zqdata":[{"zqdata":[{"zqdata":"NaN"}],"zqsize":[1,1],"zqtype":"double"},{"zqdata":[{"zqdata":"NaN"}],"zqsize":[1,1],"zqtype":"single"}],"zqsize":[1,2],"zqtype":"cell"})"},
        {{1, 0}, R"({"zqdata":[{"zqdata":"NaN"},{"zqdata":["NaN"],"zqsize":[1,1],"zqtype":"single"}],"zqsize":[1,2],"zqtype":"cell"})"},
        {{1, 1}, R"({"zqdata":[{"zqdata":"NaN"},{"zqdata":[{"zqdata":"NaN"}],"zqsize":[1,1],"zqtype":"single"}],"zqsize":[1,2],"zqtype":"cell"})"},
    };
    zd::Array const array = cell({1, 2},
        {scalar(std::numeric_limits<double>::quiet_NaN()), numbers<float>({1, 1}, {std::numeric_limits<float>::quiet_NaN()})});
    std::int32_t const settings[] = {0, 1, 2, 3, -1, 256, std::numeric_limits<std::int32_t>::min()};
    for (std::int32_t const mode : settings)
        for (std::int32_t const nan : settings)
            for (std::int32_t const filter : settings) {
                SCOPED_TRACE(::testing::Message() << mode << ", " << nan << ", " << filter);
                auto const selected = expected.find({mode, nan});
                bool const known = selected != expected.end() && filter >= 0 && filter <= 2;
                fj::Value const json = zd::json::zorbaldata_to_json(array, static_cast<ToJsonMode>(mode),
                    static_cast<NanType>(nan), static_cast<zd::ObjectFilter>(filter));
                EXPECT_EQ(tagged(json), known ? selected->second : "undefined");
            }
    // Not even a refused array fails, and a filter does not touch what holds no object.
    auto const outOfRange = static_cast<zd::ObjectFilter>(3);
    EXPECT_EQ(zd::json::zorbaldata_to_string(doubles({3}, {1, 2, 3}), Small, String, outOfRange), "null");
    EXPECT_EQ(zd::json::zorbaldata_to_string(doubles({2, 2}, {1, 3, 2, 4}), Small, Object, zd::ObjectFilter::DenyAll),
        "[[1,2],[3,4]]");
}

} // namespace
