// string_to_double: exact rounding, leading zeros, and numbers beyond double's range.
#include <foundation/json/detail/string_to_double.hpp>

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

using namespace foundation::json::detail;

namespace {

double const infinity = std::numeric_limits<double>::infinity();

// Compares bits, so that -0.0 and 0.0 differ.
void expect_same_double(double actual, double expected, std::string const& token)
{
    EXPECT_EQ(std::bit_cast<std::uint64_t>(actual), std::bit_cast<std::uint64_t>(expected))
        << token << " gave " << actual;
}

TEST(StringToDouble, Tokens)
{
    struct Case {
        std::string token;
        double value;
    };
    double const max = std::numeric_limits<double>::max();
    static const Case cases[] = {
        {"0", 0.0}, {"-0", -0.0}, {"0.1", 0.1}, {"1e21", 1e21}, {"1E+21", 1e21},
        {"0123", 123.0}, {"-007", -7.0}, {"00.50e-0", 0.5},
        // Halfway cases round to even.
        {"9007199254740993", 9007199254740992.0}, {"9007199254740995", 9007199254740996.0},
        // The ends of the range: subnormals, the largest double, and what lies beyond both.
        {"5e-324", 0x1p-1074}, {"2.4703282292062328e-324", 0x1p-1074}, {"2.4703282292062327e-324", 0.0},
        {"2.4703282292062327e-325", 0.0}, {"2.2250738585072011e-308", 0x0.fffffffffffffp-1022},
        {"1.7976931348623157e308", max}, {"1.7976931348623158e308", max}, {"1.7976931348623159e308", infinity},
        {"1e400", infinity}, {"-1e400", -infinity}, {"1e-400", 0.0}, {"-1e-400", -0.0},
        {"1e99999999999999999999", infinity}, {"-1e-99999999999999999999", -0.0},
        {"0e99999999999999999999", 0.0}, {"-0.000e99999999999999999999", -0.0},
        // Long digit runs, whose exponent makes up for their length.
        {"1" + std::string(400, '0') + "e-800", 0.0}, {"0." + std::string(400, '0') + "1e800", infinity},
        {"1" + std::string(799, '0'), infinity},
        {"9007199254740993." + std::string(783, '0') + "1", 9007199254740994.0},
        {"9007199254740993." + std::string(784, '0'), 9007199254740992.0},
        {"0." + std::string(799, '0') + "1e801", 10.0},
    };
    for (Case const& c : cases) {
        expect_same_double(string_to_double(c.token.c_str()), c.value, c.token);
        expect_same_double(string_to_double(c.token.data(), c.token.data() + c.token.size()), c.value, c.token);
    }
}

TEST(StringToDouble, RangeStopsAtItsEnd)
{
    std::string const text = "1.5e3,-2e999";
    expect_same_double(string_to_double(text.data(), text.data() + 3), 1.5, "1.5 of 1.5e3");
    expect_same_double(string_to_double(text.data() + 6, text.data() + 10), -2e9, "-2e9 of -2e999");
}

} // namespace
