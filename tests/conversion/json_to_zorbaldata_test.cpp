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


namespace {

namespace fj = foundation::json;
namespace zd = foundation::zorbaldata;
using zd::ArrayType;
using Dims = std::vector<unsigned long>;

zd::Array convert(fj::Value const& value)
{
    zd::ArrayFactory factory;
    return zd::json::json_to_zorbaldata(value, factory);
}

// Bare float and integer alternatives are no scalars: only typed data holds them.
TEST(JsonToZorbaldata, ScalarsGiveTypeSizeAndValue)
{
    double const nan = std::numeric_limits<double>::quiet_NaN();
    static const struct { fj::Value value; ArrayType type; Dims dims; } cases[] = {
        {fj::Value(1.5), ArrayType::DOUBLE, {1, 1}}, {fj::Value(nan), ArrayType::DOUBLE, {1, 1}},
        {fj::Value(true), ArrayType::LOGICAL, {1, 1}}, {fj::Value(false), ArrayType::LOGICAL, {1, 1}},
        {fj::Value(""), ArrayType::CHAR, {0, 0}}, {fj::Value(5LL), ArrayType::DOUBLE, {0, 0}},
        {fj::Value(5ULL), ArrayType::DOUBLE, {0, 0}}, {fj::Value(2.5f), ArrayType::DOUBLE, {0, 0}},
    };
    for (auto const& c : cases) {
        zd::Array const array = convert(c.value);
        EXPECT_EQ(array.getType(), c.type) << &c - cases;
        EXPECT_EQ(array.getDimensions(), c.dims) << &c - cases;
    }
    EXPECT_EQ(zd::TypedArray<double>(convert(fj::Value(1.5)))[0], 1.5);
    EXPECT_TRUE(std::isnan(zd::TypedArray<double>(convert(fj::Value(nan)))[0]));
    EXPECT_TRUE(zd::TypedArray<bool>(convert(fj::Value(true)))[0]);
    EXPECT_FALSE(zd::TypedArray<bool>(convert(fj::Value(false)))[0]);
}

TEST(JsonToZorbaldata, StringsBecomeUtf16CodeUnits)
{
    static const struct { std::string utf8; std::u16string utf16; } cases[] = {
        {"hi", u"hi"}, {"\xC3\xA9t\xC3\xA9", u"\u00E9t\u00E9"},
        {"\xF0\x9F\x98\x80", u"\U0001F600"}, // two code units, so two elements
        {"\xED\xA0\x80", std::u16string(1, char16_t(0xD800))}, // a lone surrogate survives
        {std::string("a\0b", 3), std::u16string(u"a\0b", 3)},
    };
    for (auto const& c : cases) {
        zd::CharArray const array(convert(fj::Value(c.utf8)));
        EXPECT_EQ(array.toUTF16(), c.utf16) << c.utf8;
        EXPECT_EQ(array.getDimensions(), (Dims{1, c.utf16.size()})) << c.utf8;
    }
    EXPECT_THROW_WHAT(convert(fj::Value("ab\xFF")), yx::i18n::CvtInvalidCharacter,
        "Invalid UTF-8 byte sequence at byte offset 2");
}

// At the top Undefined and Null are refused alike; below it the visitor alone decides: Undefined is the
// empty array and Null its own failure.
TEST(JsonToZorbaldata, UndefinedAndNull)
{
    std::string const text = "Input value is either foundation::json::Undefined or foundation::json::Null. "
                             "The value cannot be converted to ZORBAL Data Array.";
    EXPECT_THROW_WHAT(convert(fj::Value()), zd::json::InvalidInputJSONValue, text);
    EXPECT_THROW_WHAT(convert(fj::Value(fj::Null{})), zd::json::InvalidInputJSONValue, text);

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
