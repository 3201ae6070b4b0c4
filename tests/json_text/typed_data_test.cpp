// Reading "zqdata" under an integer "zqtype": exact saturated integers, in either key order.
#include "read_text.hpp"

#include <foundation/json/detail/parser_steps.hpp>
#include <foundation/json/json_cast.hpp>
#include <foundation/json/nesting_limit.hpp>

#include <limits>
#include <string>

namespace {

namespace fj = foundation::json;
using zq::test::StopCase;

using UInt = unsigned long long;
constexpr long long int_max = std::numeric_limits<long long>::max();
constexpr long long int_min = std::numeric_limits<long long>::min();
constexpr UInt uint_max = std::numeric_limits<UInt>::max();

fj::Value data_of(std::string const& text)
{
    fj::Value out;
    EXPECT_EQ(zq::test::read_value(text, out).code, fj::ParseOk) << text;
    return out.which() == 6 ? fj::json_cast<fj::Object>(out).at("zqdata") : fj::Value();
}

fj::Value numbers(auto... elements)
{
    return fj::Value(fj::Array{fj::Value(elements)...});
}

TEST(TypedData, EitherKeyOrderGivesTheSameTree)
{
    static const struct {
        char const* type;
        char const* data;
        fj::Value expected;
    } cases[] = {
        {R"("int64")", "[9007199254740993, -0]", numbers(9007199254740993LL, 0LL)},
        {R"("int8")", "[99999999999999999999,-99999999999999999999]", numbers(int_max, int_min)},
        {R"("uint8")", "[-1,18446744073709551616]", numbers(0ULL, uint_max)},
        {R"("uint32")", "[ ]", numbers()},
        {R"("double")", "[1.5,7]", numbers(1.5, 7.0)},
        {"5", "[1]", numbers(1.0)},
    };
    for (auto const& c : cases) {
        std::string const type = std::string(R"("zqtype":)") + c.type;
        std::string const data = std::string(R"("zqdata":)") + c.data;
        fj::Value type_first, data_first;
        zq::test::read_value("{" + type + R"(,"zqsize":[1,1],)" + data + "}", type_first);
        zq::test::read_value("{" + data + R"(,"zqsize":[1,1],)" + type + "}", data_first);
        EXPECT_EQ(type_first, data_first) << c.data;
        EXPECT_EQ(fj::json_cast<fj::Object>(type_first).at("zqdata"), c.expected) << c.data;
    }
}

TEST(TypedData, FailuresOfTheSecondReadingComeAfterTheType)
{
    // Plain JSON all, so that data before the type fail only when the type comes.
    static const StopCase cases[] = {
        {"Fraction", "[1.5]", fj::BadInteger, 2},
        {"Exponent", "[1e3]", fj::BadInteger, 2},
        {"String", R"([1, "2"])", fj::BadInteger, 4},
        {"Object", "[{}]", fj::BadInteger, 1},
        {"NestedArray", "[[1]]", fj::BadInteger, 1},
        {"LeadingZero", "[012]", fj::ExpectedArrayEnd, 2},
        {"Bare", "99999999999999999999", fj::ExpectedArrayStart, 0},
    };
    std::string const head = R"({"zqtype":"int32","zqdata":)";
    for (StopCase const& c : cases) {
        fj::Value out;
        zq::test::Stop const type_first = zq::test::read_value(head + c.text + "}", out);
        EXPECT_EQ(type_first.code, c.code) << c.name;
        EXPECT_EQ(type_first.offset, static_cast<std::ptrdiff_t>(head.size()) + c.offset) << c.name;
        std::string const text = R"({"zqdata":)" + c.text + R"(,"zqtype":"int32","zqsize":[1,1]})";
        zq::test::Stop const data_first = zq::test::read_value(text, out);
        EXPECT_EQ(data_first.code, c.code) << c.name;
        EXPECT_EQ(data_first.offset, static_cast<std::ptrdiff_t>(text.find(",\"zqsize\""))) << c.name;
    }
}

// The latest zqdata is read again, and becomes the entry although the first key won; each object has its
// own type.
TEST(TypedData, RepeatedKeysFollowTheOrderOfReading)
{
    static const struct {
        char const* text;
        fj::Value data;
    } cases[] = {
        {R"({"zqdata":[1],"zqdata":[2],"zqtype":"int8"})", numbers(2LL)},
        {R"({"zqtype":"double","zqdata":[1],"zqdata":[2],"zqtype":"int8"})", numbers(2LL)},
        {R"({"zqdata":[1],"zqtype":"double","zqtype":"int8"})", numbers(1LL)},
        {R"({"zqtype":"int8","zqtype":"double","zqdata":[1]})", numbers(1LL)},
        {R"({"zqtype":"int8","zqdata":[1],"zqtype":"uint8"})", numbers(1ULL)},
        {R"({"zqtype":"int8","zqdata":[1],"zqdata":[2]})", numbers(1LL)},
        {R"({"zqdata":[{"zqdata":[2],"zqtype":"uint8"}],"zqtype":"double"})",
         fj::Value(fj::Array{fj::Value(fj::Object{{"zqdata", numbers(2ULL)}, {"zqtype", fj::Value("uint8")}})})},
    };
    for (auto const& c : cases)
        EXPECT_EQ(data_of(c.text), c.data) << c.text;
    fj::Value outer;
    zq::test::read_value(R"({"zqtype":"int8","a":{"zqdata":[1]}})", outer);
    EXPECT_EQ(fj::json_cast<fj::Object>(outer).at("a"), fj::Value(fj::Object{{"zqdata", numbers(1.0)}}));
}

TEST(TypedData, TypedArraysCountAsALevel)
{
    std::string const deep(fj::max_nesting_depth - 1, '[');
    for (std::string const object : {R"({"zqtype":"int8","zqdata":[1]})", R"({"zqdata":[1],"zqtype":"int8"})"}) {
        fj::Value out;
        zq::test::Stop const stop = zq::test::read_value(deep + object, out);
        EXPECT_EQ(stop.code, fj::NestingTooDeep) << object;
        EXPECT_EQ(stop.offset, static_cast<std::ptrdiff_t>(deep.size() + object.find('['))) << object;
    }
}

TEST(TypedData, IntegersEndAtTheFirstNonDigitAndSaturate)
{
    for (std::size_t length = 1; length != 27; ++length) {
        UInt const expected = length > 19 ? uint_max : std::stoull(std::string(length, '9'));
        for (int byte = 0; byte != 256; ++byte) {
            if (byte >= '0' && byte <= '9')
                continue;
            std::string const text = std::string(length, '9') + static_cast<char>(byte) + "99999999";
            UInt value = 0;
            zq::test::Stop const stop = zq::test::run_step(text, [&](auto& position, auto const& end) {
                return fj::parse_uint(value, position, end);
            });
            ASSERT_EQ(stop.offset, static_cast<std::ptrdiff_t>(length)) << length << " digits, then " << byte;
            ASSERT_EQ(value, expected) << length << " digits, then " << byte;
        }
    }
    std::string const digits(100'000, '7');
    EXPECT_EQ(data_of(R"({"zqdata":[-)" + digits + "," + digits + R"(],"zqtype":"int64"})"), numbers(int_min, int_max));
}

} // namespace
