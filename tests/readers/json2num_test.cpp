// json2num: which alternatives each element type takes, its limits, and the bits of the special floats.
#include "reader_support.hpp"

#include <foundation/zorbaldata_json.hpp>

#include <bit>
#include <cstdint>
#include <cstdio>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <utility>

namespace {

using namespace zq::test;

// The converted element as text: an integer in decimal, a float or double as its bits in hexadecimal.
template <typename T>
std::string converted(fj::Value const& value)
{
    T const element = zj::detail::json2num<T, true, 0>(value);
    if constexpr (std::is_floating_point_v<T>) {
        using Bits = std::conditional_t<sizeof(T) == 4, std::uint32_t, std::uint64_t>;
        char text[24];
        std::snprintf(text, sizeof text, "0x%llX", static_cast<unsigned long long>(std::bit_cast<Bits>(element)));
        return text;
    } else {
        return std::to_string(element);
    }
}

// The exact failure of a refused element: its class and what().
template <typename T>
std::string converted_or_failure(fj::Value const& value)
{
    using Failure = std::conditional_t<std::is_floating_point_v<T>, zj::InvalidFloatingElem, zj::InvalidIntegralElem>;
    try {
        return converted<T>(value);
    } catch (Failure const& e) {
        return typeid(e) == typeid(Failure) ? std::string("refused: ") + e.what() : "a subclass";
    }
}

fj::Value object(char const* key, fj::Value value)
{
    return fj::Value(fj::Object {{key, std::move(value)}});
}

std::string integral(char const* type)
{
    return std::string("refused: Invalid value for type ") + type + ". Expected an integral number";
}

std::string floating(char const* type)
{
    return std::string("refused: Invalid value for type ") + type + floating_choices;
}

// Integers come from the integer alternative of their signedness alone, up to their limits inclusive;
// a whole double is no integer. Every failure names the element type.
TEST(Json2Num, ConvertsOrRefuses)
{
    fj::Value const nan_object = object("zqdata", fj::Value("NaN"));
    const struct {
        fj::Value input;
        std::string (*convert)(fj::Value const&);
        std::string expected;
    } cases[] = {
        {fj::Value(127LL), converted_or_failure<signed char>, "127"},
        {fj::Value(-128LL), converted_or_failure<signed char>, "-128"},
        {fj::Value(255ULL), converted_or_failure<unsigned char>, "255"},
        {fj::Value(1.5), converted_or_failure<double>, "0x3FF8000000000000"},
        {fj::Value("NaN"), converted_or_failure<double>, "0xFFF8000000000000"},
        {fj::Value("-Inf"), converted_or_failure<double>, "0xFFF0000000000000"},
        {fj::Value(fj::Object {{"other", fj::Value(1.0)}, {"zqdata", fj::Value("NaN")}}), converted_or_failure<double>,
            "0xFFF8000000000000"},
        {fj::Value(3.4028234663852886e38), converted_or_failure<float>, "0x7F7FFFFF"},
        {fj::Value(-3.4028234663852886e38), converted_or_failure<float>, "0xFF7FFFFF"},
        {fj::Value("NaN"), converted_or_failure<float>, "0xFFC00000"},
        {nan_object, converted_or_failure<float>, "0xFFC00000"},
        {fj::Value("Inf"), converted_or_failure<float>, "0x7F800000"},
        {fj::Value(std::numeric_limits<double>::quiet_NaN()), converted_or_failure<float>, "0x7FC00000"},
        {fj::Value(128LL), converted_or_failure<signed char>, integral("int8")},
        {fj::Value(-129LL), converted_or_failure<signed char>, integral("int8")},
        {fj::Value(1ULL), converted_or_failure<signed char>, integral("int8")},
        {fj::Value(1.0), converted_or_failure<signed char>, integral("int8")},
        {fj::Value(256ULL), converted_or_failure<unsigned char>, integral("uint8")},
        {fj::Value(1LL), converted_or_failure<unsigned char>, integral("uint8")},
        {fj::Value(1ULL), converted_or_failure<long long>, integral("int64")},
        {fj::Value(1LL), converted_or_failure<unsigned long long>, integral("uint64")},
        {fj::Value(1e39), converted_or_failure<float>, floating("single")},
        {fj::Value(1.0f), converted_or_failure<float>, floating("single")},
        {object("zqdata", fj::Value(1.0)), converted_or_failure<float>, floating("single")},
        {fj::Value("nan"), converted_or_failure<double>, floating("double")},
        {fj::Value("+Inf"), converted_or_failure<double>, floating("double")},
        {fj::Value(true), converted_or_failure<double>, floating("double")},
        {fj::Value(1LL), converted_or_failure<double>, floating("double")},
        {fj::Value(1.0f), converted_or_failure<double>, floating("double")},
        {fj::Value(fj::Object {}), converted_or_failure<double>, floating("double")},
        {object("zqdata", fj::Value(1.0)), converted_or_failure<double>, floating("double")},
    };
    for (auto const& c : cases)
        EXPECT_EQ(c.convert(c.input), c.expected) << &c - cases;
}

} // namespace
