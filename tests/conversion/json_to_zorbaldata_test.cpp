// The entry from a JSON value to an array: scalars, strings, and what the top level refuses.
#include <foundation/zorbaldata/json/json_to_zorbaldata.hpp>

#include "expect_throw.hpp"

#include <foundation/zorbaldata.hpp>
#include <foundation/zorbaldata/json/convert_error.hpp>
#include <foundation/zorbaldata/json/detail/to_zorbaldata_visitor.hpp>
#include <frontend/detail/json_value_to_zorbal_visitor.hpp>
#include <frontend/detail/parse_error.hpp>
#include <yx/i18n/cvt_exception.hpp>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace {

namespace fj = foundation::json;
namespace zd = foundation::zorbaldata;
using zd::ArrayType;
using Dims = std::vector<unsigned long>;

struct ScalarCase {
    char const* name;
    fj::Value value;
    ArrayType type;
    Dims dims;
};

class JsonToZorbaldataScalar : public ::testing::TestWithParam<ScalarCase> { };

TEST_P(JsonToZorbaldataScalar, GivesTypeAndSize)
{
    zd::ArrayFactory factory;
    zd::Array const array = zd::json::json_to_zorbaldata(GetParam().value, factory);
    EXPECT_EQ(array.getType(), GetParam().type);
    EXPECT_EQ(array.getDimensions(), GetParam().dims);
}

// Bare float and integer alternatives are no scalars: only typed data holds them.
INSTANTIATE_TEST_SUITE_P(Alternatives, JsonToZorbaldataScalar,
    ::testing::Values(ScalarCase{"Double", fj::Value(1.5), ArrayType::DOUBLE, {1, 1}},
        ScalarCase{"True", fj::Value(true), ArrayType::LOGICAL, {1, 1}},
        ScalarCase{"False", fj::Value(false), ArrayType::LOGICAL, {1, 1}},
        ScalarCase{"String", fj::Value("hi"), ArrayType::CHAR, {1, 2}},
        ScalarCase{"EmptyString", fj::Value(""), ArrayType::CHAR, {0, 0}},
        ScalarCase{"Int64", fj::Value(5LL), ArrayType::DOUBLE, {0, 0}},
        ScalarCase{"UInt64", fj::Value(5ULL), ArrayType::DOUBLE, {0, 0}},
        ScalarCase{"Single", fj::Value(2.5f), ArrayType::DOUBLE, {0, 0}}),
    [](auto const& info) { return std::string(info.param.name); });

TEST(JsonToZorbaldata, ScalarsHoldTheirValue)
{
    zd::ArrayFactory factory;
    EXPECT_EQ(zd::TypedArray<double>(zd::json::json_to_zorbaldata(fj::Value(1.5), factory))[0], 1.5);
    EXPECT_TRUE(zd::TypedArray<bool>(zd::json::json_to_zorbaldata(fj::Value(true), factory))[0]);
    double const nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_TRUE(std::isnan(zd::TypedArray<double>(zd::json::json_to_zorbaldata(fj::Value(nan), factory))[0]));
}

TEST(JsonToZorbaldata, StringsBecomeUtf16CodeUnits)
{
    struct {
        std::string utf8;
        std::u16string utf16;
    } const cases[] = {
        {"hi", u"hi"},
        {"\xC3\xA9t\xC3\xA9", u"\u00E9t\u00E9"},
        {"\xF0\x9F\x98\x80", u"\U0001F600"}, // two code units, so two elements
        {"\xED\xA0\x80", std::u16string(1, char16_t(0xD800))}, // a lone surrogate survives
        {std::string("a\0b", 3), std::u16string(u"a\0b", 3)},
    };
    zd::ArrayFactory factory;
    for (auto const& c : cases) {
        zd::CharArray const array(zd::json::json_to_zorbaldata(fj::Value(c.utf8), factory));
        EXPECT_EQ(array.toUTF16(), c.utf16) << c.utf8;
        EXPECT_EQ(array.getDimensions(), (Dims{1, c.utf16.size()})) << c.utf8;
    }
}

TEST(JsonToZorbaldata, InvalidUtf8FailsWithTheConvertersException)
{
    zd::ArrayFactory factory;
    EXPECT_THROW_WHAT(zd::json::json_to_zorbaldata(fj::Value("ab\xFF"), factory), yx::i18n::CvtInvalidCharacter,
        "Invalid UTF-8 byte sequence at byte offset 2");
}

TEST(JsonToZorbaldata, RefusesUndefinedAndNullAtTheTop)
{
    std::string const text = "Input value is either foundation::json::Undefined or foundation::json::Null. The "
                             "value cannot be converted to ZORBAL Data Array.";
    zd::ArrayFactory factory;
    EXPECT_THROW_WHAT(zd::json::json_to_zorbaldata(fj::Value(), factory), zd::json::InvalidInputJSONValue, text);
    EXPECT_THROW_WHAT(
        zd::json::json_to_zorbaldata(fj::Value(fj::Null{}), factory), zd::json::InvalidInputJSONValue, text);
}

// Below the top, the visitor alone decides: Undefined is the empty array and Null its own failure.
TEST(JsonValueToZorbalVisitor, NestedUndefinedIsEmptyAndNestedNullFails)
{
    zd::ArrayFactory factory;
    zd::json::detail::to_zorbaldata_visitor backend(factory);
    foundation::zorbaljson::detail::json_value_to_zorbal_visitor visitor(backend);

    zd::Array const empty = visitor(fj::Value());
    EXPECT_EQ(empty.getType(), ArrayType::DOUBLE);
    EXPECT_EQ(empty.getDimensions(), (Dims{0, 0}));
    EXPECT_THROW_WHAT(
        visitor(fj::Value(fj::Null{})), foundation::zorbaljson::NullNotSupported, "JSON null not supported");
}

} // namespace
