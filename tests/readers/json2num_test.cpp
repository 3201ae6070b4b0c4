// json2num: which alternatives each element type takes, its limits, and the bits of the special floats.
#include "reader_support.hpp"

#include <foundation/zorbaldata_json.hpp>

#include <bit>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <string>
#include <type_traits>

namespace {

using namespace zq::test;
namespace zj = foundation::zorbaljson;

// The converted element as text: an integer in decimal, a float or double as its bits in hexadecimal.
template <typename T>
std::string converted(fj::Value const& value)
{
    T const element = zj::detail::json2num<T, true, 0>(value);
    if constexpr (std::is_floating_point_v<T>) {
        using Bits = std::conditional_t<sizeof(T) == 4, std::uint32_t, std::uint64_t>;
        char text[24];
        std::snprintf(
            text, sizeof text, "0x%llX", static_cast<unsigned long long>(std::bit_cast<Bits>(element)));
        return text;
    } else {
        return std::to_string(element);
    }
}

template <typename T>
void refused(fj::Value const& value, std::string const& text)
{
    using Failure
        = std::conditional_t<std::is_floating_point_v<T>, zj::InvalidFloatingElem, zj::InvalidIntegralElem>;
    EXPECT_THROW_WHAT((zj::detail::json2num<T, true, 0>(value)), Failure, text);
}

fj::Value object(char const* key, fj::Value value)
{
    return fj::Value(fj::Object { { key, std::move(value) } });
}

fj::Value const nan_object = object("zqdata", fj::Value("NaN"));

struct AcceptCase {
    char const* name;
    fj::Value input;
    std::string (*convert)(fj::Value const&);
    char const* expected;
};

class Json2Num : public ::testing::TestWithParam<AcceptCase> { };

TEST_P(Json2Num, Converts)
{
    EXPECT_EQ(GetParam().convert(GetParam().input), GetParam().expected);
}

// Integers come from the integer alternative of their signedness alone, up to their limits inclusive.
static AcceptCase const accepted[] = {
    { "Int8Max", fj::Value(127LL), converted<signed char>, "127" },
    { "Int8Min", fj::Value(-128LL), converted<signed char>, "-128" },
    { "UInt8Max", fj::Value(255ULL), converted<unsigned char>, "255" },
    { "DoubleNumber", fj::Value(1.5), converted<double>, "0x3FF8000000000000" },
    { "DoubleNaNString", fj::Value("NaN"), converted<double>, "0xFFF8000000000000" },
    { "DoubleMinusInfString", fj::Value("-Inf"), converted<double>, "0xFFF0000000000000" },
    { "DoubleNaNObjectWithOtherKeys",
        fj::Value(fj::Object { { "other", fj::Value(1.0) }, { "zqdata", fj::Value("NaN") } }),
        converted<double>, "0xFFF8000000000000" },
    { "SingleLargest", fj::Value(3.4028234663852886e38), converted<float>, "0x7F7FFFFF" },
    { "SingleLowest", fj::Value(-3.4028234663852886e38), converted<float>, "0xFF7FFFFF" },
    { "SingleNaNString", fj::Value("NaN"), converted<float>, "0xFFC00000" },
    { "SingleNaNObject", nan_object, converted<float>, "0xFFC00000" },
    { "SingleInfString", fj::Value("Inf"), converted<float>, "0x7F800000" },
    { "SingleFromDoubleNaN", fj::Value(std::numeric_limits<double>::quiet_NaN()), converted<float>,
        "0x7FC00000" },
};
INSTANTIATE_TEST_SUITE_P(Accepted, Json2Num, ::testing::ValuesIn(accepted), row_name<AcceptCase>);

struct RefuseCase {
    char const* name;
    fj::Value input;
    void (*expect)(fj::Value const&, std::string const&);
    std::string text;
};

class Json2NumFailure : public ::testing::TestWithParam<RefuseCase> { };

TEST_P(Json2NumFailure, Refuses)
{
    GetParam().expect(GetParam().input, GetParam().text);
}

std::string integral(char const* type)
{
    return std::string("Invalid value for type ") + type + ". Expected an integral number";
}

std::string floating(char const* type)
{
    return std::string("Invalid value for type ") + type
        + R"(. Expected a number or one of the following:"NaN", "Inf", "-Inf", {"zqdata":"NaN"}, {"zqdata":"Inf"}, {"zqdata":"-Inf"})";
}

// One failure for every fault, naming the element type; a whole double is no integer.
static RefuseCase const refused_cases[] = {
    { "Int8AboveMax", fj::Value(128LL), refused<signed char>, integral("int8") },
    { "Int8BelowMin", fj::Value(-129LL), refused<signed char>, integral("int8") },
    { "Int8FromUnsigned", fj::Value(1ULL), refused<signed char>, integral("int8") },
    { "Int8FromWholeDouble", fj::Value(1.0), refused<signed char>, integral("int8") },
    { "UInt8AboveMax", fj::Value(256ULL), refused<unsigned char>, integral("uint8") },
    { "UInt8FromSigned", fj::Value(1LL), refused<unsigned char>, integral("uint8") },
    { "Int64FromUnsigned", fj::Value(1ULL), refused<long long>, integral("int64") },
    { "UInt64FromSigned", fj::Value(1LL), refused<unsigned long long>, integral("uint64") },
    { "SingleAboveLargest", fj::Value(1e39), refused<float>, floating("single") },
    { "SingleFromFloatAlternative", fj::Value(1.0f), refused<float>, floating("single") },
    { "SingleObjectWithoutString", object("zqdata", fj::Value(1.0)), refused<float>, floating("single") },
    { "DoubleLowerCaseNaN", fj::Value("nan"), refused<double>, floating("double") },
    { "DoublePlusInf", fj::Value("+Inf"), refused<double>, floating("double") },
    { "DoubleFromBool", fj::Value(true), refused<double>, floating("double") },
    { "DoubleFromInt64", fj::Value(1LL), refused<double>, floating("double") },
    { "DoubleFromFloat", fj::Value(1.0f), refused<double>, floating("double") },
    { "DoubleEmptyObject", fj::Value(fj::Object {}), refused<double>, floating("double") },
    { "DoubleObjectWithNumber", object("zqdata", fj::Value(1.0)), refused<double>, floating("double") },
};
INSTANTIATE_TEST_SUITE_P(Refused, Json2NumFailure, ::testing::ValuesIn(refused_cases), row_name<RefuseCase>);

} // namespace
