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
#include <foundation/zorbaldata/json/detail/tree_output.hpp>

#include <boost/numeric/conversion/cast.hpp>

#include <cmath>
#include <cstdint>
#include <limits>
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
int const three[] = {1, 2, 3}; bool const two[] = {true, false};
unsigned long const rows[] = {0, 1}; double const values[] = {1, 2};
std::span<unsigned long const> const one_row(rows, 1);
constexpr zjd::exact_value exact;
constexpr zjd::floating_value<String> floating;
constexpr auto small_writer = [](zd::Array array, auto& out) {
    zjd::write_array<Small, String, zd::ObjectFilter::AllowAll>(std::move(array), out);
};

// The contiguous range of the n elements at first, as the writers take the elements of plain arrays.
template <typename T>
zd::Range<zd::TypedIterator, T const> range(T const* first, std::size_t n)
{
    return {zd::TypedIterator<T const>(first), zd::TypedIterator<T const>(first + n)};
}

// The tree that one of the library's writers gives: write(out) into a tree output.
fj::Value built(void (*write)(Out&))
{
    Out out;
    write(out);
    return out.take();
}

template <typename T>
auto elements(zd::Array const& array) { return zd::getReadOnlyElements<T>(array); }
zd::StructArray fieldsOfTwo()
{
    return zd::StructArray(structs({1, 2}, {{"a", {scalar(1), scalar(2)}}, {"b", {scalar(3), scalar(4)}}}));
}

// Each writer checks the elements it is handed against the dimensions it is told, and takes no fewer
// than two of them. The walk of a struct runs on from field to field, so a count larger than the
// elements starves the last field.
TEST(Writer, ElementsThatDisagreeWithTheDimensionsAreRefused)
{
    static struct {
        void (*write)(Out&);
        char const* text;
    } const cases[] = {
        {[](Out& o) { zjd::write_numeric(o, Dims{2, 2}, range(three, 3), exact); }, mismatch},
        {[](Out& o) { zjd::write_numeric(o, Dims{1, 2}, range(three, 3), exact); }, mismatch},
        {[](Out& o) { zjd::nested_form(o, Dims{3, 1}, range(two, 2), exact); }, mismatch},
        {[](Out& o) { zjd::scalar_form(o, range(two, 2), exact); }, mismatch},
        {[](Out& o) { zjd::write_sparse(o, Dims{2, 2}, rows, rows, range(values, 1), floating); }, mismatch},
        {[](Out& o) { zjd::write_sparse(o, Dims{2, 2}, rows, one_row, range(values, 2), floating); },
            mismatch},
        {[](Out& o) { zjd::write_sparse(o, Dims{4}, rows, rows, range(values, 2), floating); }, too_few},
        {[](Out& o) { zjd::write_cell(o, Dims{2, 2}, elements<zd::Array>(cell({1, 2}, {})), small_writer); },
            mismatch},
        {[](Out& o) { zjd::write_enum(o, Dims{1, 3}, "", elements<zd::Enumeration>(enums({1, 2}, "", {}))); },
            mismatch},
        {[](Out& o) { zjd::write_string(o, Dims{2, 2}, elements<Text>(strings({1, 2}, {}))); }, mismatch},
        {[](Out& o) { zjd::write_struct_large(o, Dims{2, 2}, fieldsOfTwo(), small_writer); },
            "Number of elements for field b did not match specified dimensions"},
        {[](Out& o) { zjd::write_struct_large(o, Dims{4}, fieldsOfTwo(), small_writer); }, too_few},
        {[](Out& o) { zjd::write_plain_object(o, fieldsOfTwo(), small_writer); },
            "Number of fieldnames does not match number of elements"},
    };
    for (auto const& c : cases)
        EXPECT_THROW_WHAT(built(c.write), std::runtime_error, c.text) << "row " << &c - cases;
    EXPECT_EQ(tagged(built([](Out& o) { zjd::write_numeric(o, Dims{3, 1}, range(three, 3), exact); })),
        R"({"zqdata":[1i,2i,3i],"zqsize":[3,1],"zqtype":"int32"})");
    EXPECT_THROW_WHAT(zjd::nesting_shape({std::numeric_limits<unsigned long>::max(), 2}),
        boost::numeric::positive_overflow, "bad numeric conversion: positive overflow");
}

TEST(Writer, FewerThanTwoDimensionsAreRefusedAtAnyDepth)
{
    // Nothing wraps the failure of what a container holds.
    zd::Array const arrays[] = {doubles({3}, {1, 2, 3}), doubles({}, {1}), logicals({1}, {true}),
        numbers<short>({1}, {1}), chars({3}, u"abc"), strings({1}, {Text(u"a")}), cell({1}, {scalar(1)}),
        structs({1}, {{"a", {scalar(1)}}}), enums({1}, "pkg.E", {"a"}),
        cell({1, 1}, {structs({1, 1}, {{"a", {scalar(1)}}, {"b", {doubles({2}, {1, 2})}}})})};
    for (zd::Array const& array : arrays)
        for (ToJsonMode const mode : {Large, Small})
            EXPECT_THROW_WHAT(write(array, mode), std::runtime_error, too_few)
                << zd::getTypeName(array.getType()) << (mode == Large ? " large" : " small");
    zd::Array const handle = factory.createArray(zd::ArrayType::HANDLE_OBJECT_REF, {1, 1});
    EXPECT_THROW_WHAT(write(cell({1, 1}, {handle}), Large),
        zd::ObjectNotSupportedException, "Serializing handle object as reference is not supported for JSON.");
}

TEST(Writer, TypesThatAreNoArrayTypeAreRefused)
{
    auto const any_view = [](zd::Array const&) { return 0; };
    for (int const type : {0, 26, 33, 34, 35, 38, -1, 1000})
        EXPECT_THROW_WHAT(zjd::dispatch_on_array_type(static_cast<zd::ArrayType>(type), scalar(1), any_view),
            zd::EArrayUnknownDataType, "Unknown DataType field in zorbal::data::Array.")
            << type;
}

TEST(Writer, WritesAThousandLevelsAndRefusesMore)
{
    EXPECT_NO_THROW(write(nested_cells(1000), Large));
    EXPECT_THROW_WHAT(write(nested_cells(1001), Small), zd::json::ArrayNestingTooDeep,
        "Arrays nested deeper than 1000 levels cannot be written");
    zd::Array const deep = nested_cells(100000);
    EXPECT_TRUE(zq::test::same_on_both_roads(deep, Large, String, zd::ObjectFilter::AllowAll));
    EXPECT_THROW(zd::json::zorbaldata_to_json(deep, Large, String, zd::ObjectFilter::AllowAll),
        zd::json::ArrayNestingTooDeep);
}

// A cell of a double NaN and a single NaN tells all four combinations of mode and NanType apart, and
// shows that the elements are written by the same variant as the cell. Settings out of range give
// Undefined without reading the array.
TEST(Writer, ExactSettingsSelectTheVariant)
{
    zd::Array const array = cell({1, 2}, {scalar(std::nan("")), numbers<float>({1, 1}, {std::nanf("")})});
    // The double and the single element under NanType String and Object, and the double's small form.
    std::string const words[] = {R"("NaN")", R"({"zqdata":"NaN"})"};
    auto const dbl = [&](int nan) { return large("double", "[1,1]", "[" + words[nan] + "]"); };
    auto const single = [&](int nan) { return large("single", "[1,1]", "[" + words[nan] + "]"); };
    std::int32_t const settings[] = {0, 1, 2, 3, -1, 256, std::numeric_limits<std::int32_t>::min()};
    for (std::int32_t const mode : settings)
        for (std::int32_t const nan : settings)
            for (std::int32_t const filter : settings) {
                std::string expected = "undefined";
                if (mode >= 0 && mode <= 1 && nan >= 0 && nan <= 1 && filter >= 0 && filter <= 2)
                    expected = large("cell", "[1,2]", "[" + (mode ? words[1] : dbl(nan)) + "," + single(nan)
                        + "]");
                fj::Value const json = zd::json::zorbaldata_to_json(array, static_cast<ToJsonMode>(mode),
                    static_cast<NanType>(nan), static_cast<zd::ObjectFilter>(filter));
                EXPECT_EQ(tagged(json), expected) << mode << ", " << nan << ", " << filter;
            }
    // Not even a refused array fails, and a filter does not touch what holds no object.
    auto const outOfRange = static_cast<zd::ObjectFilter>(3);
    EXPECT_EQ(zd::json::zorbaldata_to_string(doubles({3}, {1, 2, 3}), Small, String, outOfRange), "null");
    EXPECT_EQ(zd::json::zorbaldata_to_string(doubles({2, 2}, {1, 3, 2, 4}), Small, Object,
                  zd::ObjectFilter::DenyAll),
        "[[1,2],[3,4]]");
}

} // namespace
