// The entries: the choice of variant, the writer of each array type, and the failures that all writers share.
#include "expect_throw.hpp"
#include "writer_test_support.hpp"

#include <foundation/zorbaldata/json/detail/array_type_dispatch.hpp>

#include <cstdint>
#include <limits>
#include <map>
#include <stdexcept>

namespace {

using namespace zq::test::writer;
using enum ToJsonMode;
using enum NanType;
using foundation::zorbaldata::json::zorbaldata_to_json;
using foundation::zorbaldata::json::zorbaldata_to_string;
using zd::ArrayType;

TEST(WriterDispatch, EveryTypeReachesItsWriter)
{
    static struct {
        ArrayType type;
        char const* expected;
    } const cases[] = {
        {ArrayType::LOGICAL, R"({"zqdata":[false],"zqsize":[1,1],"zqtype":"logical"})"},
        {ArrayType::CHAR, R"({"zqdata":["\u0000"],"zqsize":[1,1],"zqtype":"char"})"},
        {ArrayType::STRING, R"({"zqdata":[{"zqdata":"missing"}],"zqsize":[1,1],"zqtype":"string"})"},
        {ArrayType::DOUBLE, R"({"zqdata":[0],"zqsize":[1,1],"zqtype":"double"})"},
        {ArrayType::SINGLE, R"({"zqdata":[0f],"zqsize":[1,1],"zqtype":"single"})"},
        {ArrayType::INT8, R"({"zqdata":[0i],"zqsize":[1,1],"zqtype":"int8"})"},
        {ArrayType::UINT8, R"({"zqdata":[0u],"zqsize":[1,1],"zqtype":"uint8"})"},
        {ArrayType::INT16, R"({"zqdata":[0i],"zqsize":[1,1],"zqtype":"int16"})"},
        {ArrayType::UINT16, R"({"zqdata":[0u],"zqsize":[1,1],"zqtype":"uint16"})"},
        {ArrayType::INT32, R"({"zqdata":[0i],"zqsize":[1,1],"zqtype":"int32"})"},
        {ArrayType::UINT32, R"({"zqdata":[0u],"zqsize":[1,1],"zqtype":"uint32"})"},
        {ArrayType::INT64, R"({"zqdata":[0i],"zqsize":[1,1],"zqtype":"int64"})"},
        {ArrayType::UINT64, R"({"zqdata":[0u],"zqsize":[1,1],"zqtype":"uint64"})"},
        {ArrayType::COMPLEX_DOUBLE, R"({"zqcomplex":true,"zqdata":[0,0],"zqsize":[1,1],"zqtype":"double"})"},
        {ArrayType::COMPLEX_SINGLE, R"({"zqcomplex":true,"zqdata":[0f,0f],"zqsize":[1,1],"zqtype":"single"})"},
        {ArrayType::COMPLEX_INT8, R"({"zqcomplex":true,"zqdata":[0i,0i],"zqsize":[1,1],"zqtype":"int8"})"},
        {ArrayType::COMPLEX_UINT8, R"({"zqcomplex":true,"zqdata":[0u,0u],"zqsize":[1,1],"zqtype":"uint8"})"},
        {ArrayType::COMPLEX_INT16, R"({"zqcomplex":true,"zqdata":[0i,0i],"zqsize":[1,1],"zqtype":"int16"})"},
        {ArrayType::COMPLEX_UINT16, R"({"zqcomplex":true,"zqdata":[0u,0u],"zqsize":[1,1],"zqtype":"uint16"})"},
        {ArrayType::COMPLEX_INT32, R"({"zqcomplex":true,"zqdata":[0i,0i],"zqsize":[1,1],"zqtype":"int32"})"},
        {ArrayType::COMPLEX_UINT32, R"({"zqcomplex":true,"zqdata":[0u,0u],"zqsize":[1,1],"zqtype":"uint32"})"},
        {ArrayType::COMPLEX_INT64, R"({"zqcomplex":true,"zqdata":[0i,0i],"zqsize":[1,1],"zqtype":"int64"})"},
        {ArrayType::COMPLEX_UINT64, R"({"zqcomplex":true,"zqdata":[0u,0u],"zqsize":[1,1],"zqtype":"uint64"})"},
        {ArrayType::CELL,
            R"({"zqdata":[{"zqdata":[],"zqsize":[0,0],"zqtype":"double"}],"zqsize":[1,1],"zqtype":"cell"})"},
        {ArrayType::STRUCT, R"({"zqdata":{},"zqsize":[1,1],"zqtype":"struct"})"},
        {ArrayType::ENUM, R"({"zqdata":[""],"zqsize":[1,1],"zqtype":""})"},
        {ArrayType::SPARSE_LOGICAL, R"({"zqdata":[[],[]],"zqsize":[1,1],"zqsparse":true,"zqtype":"logical"})"},
        {ArrayType::SPARSE_DOUBLE, R"({"zqdata":[[],[],[]],"zqsize":[1,1],"zqsparse":true,"zqtype":"double"})"},
        {ArrayType::SPARSE_COMPLEX_DOUBLE,
            R"({"zqcomplex":true,"zqdata":[[],[],[]],"zqsize":[1,1],"zqsparse":true,"zqtype":"double"})"},
        {ArrayType::SPARSE_SINGLE, R"({"zqdata":[[],[],[]],"zqsize":[1,1],"zqsparse":true,"zqtype":"single"})"},
        {ArrayType::SPARSE_COMPLEX_SINGLE,
            R"({"zqcomplex":true,"zqdata":[[],[],[]],"zqsize":[1,1],"zqsparse":true,"zqtype":"single"})"},
    };
    for (auto const& c : cases) {
        SCOPED_TRACE(std::string(zd::getTypeName(c.type)));
        EXPECT_EQ(write(factory.createArray(c.type, {1, 1}), Large), c.expected);
    }
}

// A cell of a double NaN and a single NaN tells all four combinations of mode and NanType apart, and
// shows that the elements are written by the same variant as the cell.
TEST(WriterDispatch, ExactSettingsSelectTheVariant)
{
    std::map<std::pair<int, int>, std::string> const expected = {
        {{0, 0},
            R"({"zqdata":[{"zqdata":["NaN"],"zqsize":[1,1],"zqtype":"double"},{"zqdata":["NaN"],"zqsize":[1,1],"zqtype":"single"}],"zqsize":[1,2],"zqtype":"cell"})"},
        {{0, 1},
            R"({"zqdata":[{"zqdata":[{"zqdata":"NaN"}],"zqsize":[1,1],"zqtype":"double"},{"zqdata":[{"zqdata":"NaN"}],"zqsize":[1,1],"zqtype":"single"}],"zqsize":[1,2],"zqtype":"cell"})"},
        {{1, 0},
            R"({"zqdata":[{"zqdata":"NaN"},{"zqdata":["NaN"],"zqsize":[1,1],"zqtype":"single"}],"zqsize":[1,2],"zqtype":"cell"})"},
        {{1, 1},
            R"({"zqdata":[{"zqdata":"NaN"},{"zqdata":[{"zqdata":"NaN"}],"zqsize":[1,1],"zqtype":"single"}],"zqsize":[1,2],"zqtype":"cell"})"},
    };
    zd::Array const array = cell({1, 2},
        {scalar(std::numeric_limits<double>::quiet_NaN()),
            numbers<float>({1, 1}, {std::numeric_limits<float>::quiet_NaN()})});
    std::int32_t const values[] = {0, 1, 2, 3, -1, 256, std::numeric_limits<std::int32_t>::min()};
    for (std::int32_t const mode : values)
        for (std::int32_t const nan : values)
            for (std::int32_t const filter : values) {
                SCOPED_TRACE(::testing::Message() << mode << ", " << nan << ", " << filter);
                auto const selected = expected.find({mode, nan});
                bool const known = selected != expected.end() && filter >= 0 && filter <= 2;
                fj::Value const json = zorbaldata_to_json(array, static_cast<ToJsonMode>(mode),
                    static_cast<NanType>(nan), static_cast<zd::ObjectFilter>(filter));
                EXPECT_EQ(tagged(json), known ? selected->second : "undefined");
            }
}

// Settings out of range give Undefined without reading the array, so not even a refused array fails.
TEST(WriterDispatch, StringIsTheTextOfTheTree)
{
    zd::ObjectFilter const outOfRange = static_cast<zd::ObjectFilter>(3);
    EXPECT_EQ(zorbaldata_to_string(doubles({3}, {1, 2, 3}), Small, String, outOfRange), "null");
    EXPECT_EQ(zorbaldata_to_string(doubles({2, 2}, {1, 3, 2, 4}), Small, Object, zd::ObjectFilter::DenyAll),
        "[[1,2],[3,4]]");
}

TEST(WriterDispatch, TypesThatAreNoArrayTypeAreRefused)
{
    using foundation::zorbaldata::json::detail::dispatch_on_array_type;
    struct any_view {
        int operator()(zd::Array const&) const { return 0; }
    };
    zd::Array const array = scalar(1);
    for (int const type : {0, 26, 33, 34, 35, 38, -1, 1000}) {
        SCOPED_TRACE(type);
        EXPECT_THROW_WHAT(dispatch_on_array_type(static_cast<ArrayType>(type), array, any_view()),
            zd::EArrayUnknownDataType, "Unknown DataType field in zorbal::data::Array.");
    }
}

TEST(WriterDispatch, FewerThanTwoDimensionsAreRefusedByEveryWriter)
{
    static struct {
        char const* name;
        zd::Array (*make)();
    } const cases[] = {
        {"Double", [] { return doubles({3}, {1, 2, 3}); }},
        {"DoubleWithoutDimensions", [] { return doubles({}, {1}); }},
        {"Logical", [] { return logicals({1}, {true}); }},
        {"Integer", [] { return numbers<short>({1}, {1}); }},
        {"Char", [] { return chars({3}, u"abc"); }},
        {"String", [] { return strings({1}, {Text(u"a")}); }},
        {"Cell", [] { return cell({1}, {scalar(1)}); }},
        {"Struct", [] { return structs({1}, {{"a", {scalar(1)}}}); }},
        {"Enumeration", [] { return enums({1}, "pkg.E", {"a"}); }},
    };
    for (auto const& c : cases)
        for (ToJsonMode const mode : {Large, Small}) {
            SCOPED_TRACE(::testing::Message() << c.name << (mode == Large ? " large" : " small"));
            EXPECT_THROW_WHAT(write(c.make(), mode), std::runtime_error, "Must have at least two dimensions");
        }
}

} // namespace
