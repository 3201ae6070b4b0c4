// Numeric, logical, char and enumeration arrays: the element types, the flags each kind reads, which
// failure comes first, and the conversion of one element with its limits.
#include "reader_support.hpp"

#include "log_capture.hpp"

#include <foundation/zorbaldata_json.hpp>
#include <yx/i18n/cvt_exception.hpp>

#include <bit>

#include <complex>
#include <cstdint>
#include <cstdio>
#include <stdexcept>
#include <typeinfo>

namespace {

using namespace zq::test;
using cdouble = std::complex<double>;
using V = fj::Value;

char const* const zqcomplex = R"(,"zqcomplex":true)";

// zqdata lists elements in storage order, the first dimension fastest, complex ones as pairs.
static ArrayCase const arrays[] = {
    {"Double", lf("double", "[2,2]", "[1,2,3,4.5]"), as<double>, {2, 2}, {1, 2, 3, 4.5}},
    {"DoubleSpellings", lf("double", "[1,4]", R"(["NaN",{"zqdata":"Inf"},"-Inf",-0.0])"), as<double>,
        {1, 4}, {signed_nan(), inf, -inf, -0.0}},
    {"Single", lf("single", "[1,3]", R"([0.5,"NaN",{"zqdata":"-Inf"}])"), as<float>, {1, 3},
        {0.5, signed_nan(), -inf}},
    {"Int8", lf("int8", "[1,2]", "[-128,127]"), as<signed char>, {1, 2}, {-128, 127}},
    {"UInt8", lf("uint8", "[1,2]", "[0,255]"), as<unsigned char>, {1, 2}, {0, 255}},
    {"Int16", lf("int16", "[2,1]", "[-32768,32767]"), as<short>, {2, 1}, {-32768, 32767}},
    {"Int32", lf("int32", "[1,2]", "[-2147483648,2147483647]"), as<int>, {1, 2}, {-2147483648.0, 2147483647}},
    {"UInt32", lf("uint32", "[1,1]", "[4294967295]"), as<unsigned int>, {1, 1}, {4294967295.0}},
    {"Empty", lf("double", "[0,3]", "[]"), as<double>, {0, 3}, {}},
    {"ComplexFalseIsReal", lf("int32", "[1,1]", "[3]", R"(,"zqcomplex":false)"), as<int>, {1, 1}, {3}},
    {"ComplexDouble", lf("double", "[1,2]", "[1,2,3,4]", zqcomplex), as<cdouble>, {1, 2}, {1, 2, 3, 4}},
    {"ComplexSingleObjects", lf("single", "[1,1]", R"([{"zqdata":"NaN"},{"zqdata":"Inf"}])", zqcomplex),
        as<std::complex<float>>, {1, 1}, {signed_nan(), inf}},
    {"ComplexInt16", lf("int16", "[2,1]", "[1,-2,-32768,32767]", zqcomplex),
        as<std::complex<short>>, {2, 1}, {1, -2, -32768, 32767}},
    {"ComplexUInt64", lf("uint64", "[1,1]", "[0,9]", zqcomplex),
        as<std::complex<unsigned long long>>, {1, 1}, {0, 9}},
    {"LogicalRow", lf("logical", "[1,2]", "[true,false]"), as<bool>, {1, 2}, {1, 0}},
    {"LogicalStorageOrder", lf("logical", "[2,2]", "[true,false,false,true]"), as<bool>, {2, 2},
        {1, 0, 0, 1}},
    {"LogicalEmpty", lf("logical", "[0,0]", "[]"), as<bool>, {0, 0}, {}},
    {"LogicalComplexNotRead", lf("logical", "[1,1]", "[true]", R"(,"zqcomplex":"no")"), as<bool>, {1, 1},
        {1}},
    // A char array is one string of UTF-16 code units shaped by the size alone.
    {"CharRow", lf("char", "[1,3]", R"(["abc"])"), as<char16_t>, {1, 3}, {'a', 'b', 'c'}},
    {"CharRowsInStorageOrder", lf("char", "[2,3]", R"(["adbecf"])"), as<char16_t>, {2, 3},
        {'a', 'd', 'b', 'e', 'c', 'f'}},
    {"CharEmpty", lf("char", "[0,0]", R"([""])"), as<char16_t>, {0, 0}, {}},
    {"CharBeyondTheBasicPlane", lf("char", "[1,2]", "[\"\xF0\x9F\x98\x80\"]"), as<char16_t>, {1, 2},
        {0xD83D, 0xDE00}},
    {"CharFlagsNotRead", lf("char", "[1,1]", R"(["a"])", R"(,"zqcomplex":"x","zqsparse":true)"),
        as<char16_t>, {1, 1}, {'a'}},
};
INSTANTIATE_TEST_SUITE_P(Numeric, ReadsArray, ::testing::ValuesIn(arrays), row_name<ArrayCase>);

std::string const not_double_list = R"(""double arrays must be a JSON array)";
std::string const bad_double = "Invalid value for type double" + floating_choices;
std::string const incomplete = "Complex data is incomplete";
std::string const not_one_string = R"("zqdata" for char array must be in the format ["<data>"])";
std::string const int8_range = "Invalid value for type int8. Expected an integral number";
std::string const complex_flag = R"("zqcomplex" must be a JSON boolean)";
std::string const sparse_flag = R"("zqsparse" must be a JSON boolean)";

std::string sparse_refused(char const* word)
{
    return std::string(R"(Invalid "zqtype" value: )") + word
        + R"( in sparse array. Expected "double" or "logical" types)";
}

// The list first, then the flags, then the elements in storage order, and the count last; surplus
// elements are never converted.
static FailureCase const failures[] = {
    {"ScalarData", lf("double", "[1,1]", "5"), fails_with<InvalidZQDataType>, not_double_list},
    size_mismatch("TooFew", lf("double", "[2,2]", "[1,2,3]")),
    size_mismatch("TooMany", lf("double", "[2,2]", "[1,2,3,4,5]")),
    {"BadElementBeforeCount", lf("double", "[2,2]", R"([1,2,3,"x"])"), fails_with<InvalidFloatingElem>,
        bad_double},
    size_mismatch("SurplusNeverConverted", lf("double", "[2,2]", R"([1,2,3,4,"x"])")),
    {"FirstBadElementNamed", lf("int16", "[1,3]", "[1,40000,2]"), fails_with<InvalidIntegralElem>,
        "Invalid value for type int16. Expected an integral number"},
    {"ComplexOddOne", lf("double", "[1,1]", "[1]", zqcomplex), fails_with<IncompleteComplexData>, incomplete},
    size_mismatch("ComplexNone", lf("double", "[1,1]", "[]", zqcomplex)),
    {"ComplexOddShort", lf("double", "[2,1]", "[1,2,3]", zqcomplex),
        fails_with<IncompleteComplexData>, incomplete},
    {"ComplexRefusesPlainNaN", lf("double", "[1,1]", R"(["NaN",0])", zqcomplex),
        fails_with<InvalidFloatingElem>, bad_double},
    {"ComplexSingleRange", lf("single", "[1,1]", "[0,1e39]", zqcomplex),
        fails_with<InvalidFloatingElem>, "Invalid value for type single" + floating_choices},
    {"ComplexIntegerRange", lf("int8", "[1,1]", "[1,128]", zqcomplex),
        fails_with<InvalidIntegralElem>, int8_range},
    {"ComplexNotABoolean", lf("double", "[1,1]", "[1]", R"(,"zqcomplex":1)"), fails_with<InvalidPropertyType>,
        complex_flag},
    {"SparseNotABoolean", lf("double", "[1,1]", "[1]", R"(,"zqsparse":"yes")"),
        fails_with<InvalidPropertyType>, sparse_flag},
    {"BothFlagsRead", lf("double", "[1,1]", "[1]", R"(,"zqcomplex":false,"zqsparse":1)"),
        fails_with<InvalidPropertyType>, sparse_flag},
    {"ListBeforeFlags", lf("double", "[1,1]", "5", R"(,"zqcomplex":1)"), fails_with<InvalidZQDataType>,
        not_double_list},
    {"FlagsBeforeElements", lf("double", "[1,1]", R"(["x"])", R"(,"zqcomplex":1)"),
        fails_with<InvalidPropertyType>, complex_flag},
    {"SparseInt8", lf("int8", "[1,1]", "[1]", R"(,"zqsparse":true)"), fails_with<InvalidZQTypeForSparse>,
        sparse_refused("a")},
    {"SparseUInt64", lf("uint64", "[1,1]", "[1]", R"(,"zqsparse":true)"), fails_with<InvalidZQTypeForSparse>,
        sparse_refused("y")},
    {"LogicalNumberIsNoBoolean", lf("logical", "[1,2]", "[true,1]"), fails_with<InvalidLogicalElem>,
        "Invalid value for type logical. Expected true or false"},
    size_mismatch("LogicalTooFew", lf("logical", "[1,2]", "[true]")),
    size_mismatch("LogicalSurplusNeverConverted", lf("logical", "[1,1]", R"([true,"x"])")),
    {"LogicalScalarData", lf("logical", "[1,1]", "true"), fails_with<InvalidZQDataType>,
        R"(""logical arrays must be a JSON array)"},
    {"LogicalSparseNotABoolean", lf("logical", "[1,1]", "[true]", R"(,"zqsparse":"no")"),
        fails_with<InvalidPropertyType>, sparse_flag},
    {"CharNoString", lf("char", "[0,0]", "[]"), fails_with<InvalidCharArrayZQData>, not_one_string},
    {"CharNumberForString", lf("char", "[1,1]", "[5]"), fails_with<InvalidCharArrayZQData>, not_one_string},
    {"CharStringForList", lf("char", "[1,3]", R"("abc")"), fails_with<InvalidZQDataType>,
        R"(""char arrays must be a JSON array)"},
    size_mismatch("CharTooManyCodeUnits", lf("char", "[1,2]", R"(["abc"])")),
    size_mismatch("CharSurrogatePairCountsTwo", lf("char", "[1,1]", "[\"\xF0\x9F\x98\x80\"]")),
    // Only the first entry of an enumeration chose the kind; a later one that is no string fails in its
    // cast, before the count.
    {"EnumLaterEntryNoString", lf("pkg.Color", "[1,3]", R"(["red",1])"), fails_with<std::runtime_error>,
        "invalid conversion: JSON number to JSON string"},
    size_mismatch("EnumTooFew", lf("pkg.Color", "[1,3]", R"(["red","blue"])")),
    size_mismatch("EnumSurplusNeverRead", lf("pkg.Color", "[1,1]", R"(["red",1])")),
};
INSTANTIATE_TEST_SUITE_P(Numeric, FailsFirst, ::testing::ValuesIn(failures), row_name<FailureCase>);

// The parser reads integer data as int64 or uint64, so every digit of the widest types arrives.
TEST(NumericReader, KeepsEveryDigitOfSixtyFourBitIntegers)
{
    zd::TypedArray<long long> const signed_array(
        read(lf("int64", "[1,3]", "[-9223372036854775808,-9223372036854775807,9223372036854775807]")));
    EXPECT_EQ(signed_array[0], std::numeric_limits<long long>::min());
    EXPECT_EQ(signed_array[1], std::numeric_limits<long long>::min() + 1);
    EXPECT_EQ(signed_array[2], std::numeric_limits<long long>::max());
    zd::TypedArray<unsigned long long> const unsigned_array(
        read(lf("uint64", "[1,1]", "[18446744073709551615]")));
    EXPECT_EQ(unsigned_array[0], std::numeric_limits<unsigned long long>::max());
}

// The text reader refuses integer data that are no plain integers, so only trees carry these faults;
// bytes that are no UTF-8 fail in the converter, before the count of code units is known.
TEST(NumericReader, FaultsThatOnlyTreesCarry)
{
    fj::Object const sparse {{"zqsparse", fj::Value(true)}};
    EXPECT_THROW_WHAT(read_tree(large_form("int8", {1, 1}, fj::Value(5.0), sparse)), zj::InvalidZQDataType,
        R"(""int8 arrays must be a JSON array)");
    EXPECT_THROW_WHAT(read_tree(large_form("uint16", {1, 1}, fj::Array {fj::Value("x")}, sparse)),
        zj::InvalidZQTypeForSparse, sparse_refused("t"));
    EXPECT_THROW_WHAT(read_tree(large_form("uint8", {1, 1}, fj::Array {fj::Value(1LL)})), InvalidIntegralElem,
        "Invalid value for type uint8. Expected an integral number");
    EXPECT_THROW_WHAT(read_tree(large_form("int32", {1, 1}, fj::Array {fj::Value(1.0)})), InvalidIntegralElem,
        "Invalid value for type int32. Expected an integral number");
    fj::Array const bad_bytes {fj::Value("ab\xFF")};
    EXPECT_THROW(read_tree(large_form("char", {1, 9}, bad_bytes)), yx::i18n::CvtInvalidCharacter);
}

// The cast of the list is the one failure that is logged, once, with the cast's own message; a cell adds
// no line of its own to its entry's.
TEST(NumericReader, LogsTheCastOfTheListOnly)
{
    using Lines = std::vector<std::string>;
    LogCapture log;
    std::string const line = "Caught std::runtime_error while casting data: invalid conversion: JSON ";
    EXPECT_THROW(read(lf("double", "[1,1]", "5")), zj::InvalidZQDataType);
    EXPECT_EQ(log.lines(), Lines {line + "number to JSON array"});
    EXPECT_THROW(read(lf("double", "[1,1]", R"(["x"])", R"(,"zqcomplex":1)")), zj::InvalidPropertyType);
    EXPECT_THROW(read(lf("double", "[2,1]", R"(["x"])")), zj::InvalidFloatingElem);
    EXPECT_EQ(log.lines().size(), 1u);
    EXPECT_THROW_WHAT(read(lf("cell", "[1,1]", "[" + lf("single", "[1,1]", "{}") + "]")), InvalidZQDataType,
        R"(""single arrays must be a JSON array)");
    EXPECT_EQ(log.lines(), (Lines {line + "number to JSON array", line + "object to JSON array"}));
}

// "zqhandle" does not make an enumeration a handle array: a first entry that is a string decides.
TEST(EnumReader, ReadsClassAndMembersInStorageOrder)
{
    for (char const* further : {"", R"(,"zqhandle":{})"}) {
        zd::Array const array = read(lf("pkg.Color", "[2,2]", R"(["red","green","blue","red"])", further));
        ASSERT_EQ(array.getType(), zd::ArrayType::ENUM);
        EXPECT_EQ(zd::EnumArray(array).getClassName(), "pkg.Color");
        EXPECT_EQ(array.getDimensions(), (Dims {2, 2}));
        std::vector<std::string> names;
        for (auto const element : zd::getReadOnlyElements<zd::Enumeration>(array))
            names.push_back(zd::detail::castToString(element));
        EXPECT_EQ(names, (std::vector<std::string> {"red", "green", "blue", "red"}));
    }
}

// json2num: which alternatives each element type takes, its limits, and the bits of the special floats.
// The converted element as text: an integer in decimal, a float or double as its bits in hexadecimal; or
// the exact failure of a refused element.
template <typename T>
std::string converted(fj::Value const& value)
{
    using Failure = std::conditional_t<std::is_floating_point_v<T>, InvalidFloatingElem, InvalidIntegralElem>;
    try {
        T const element = zj::detail::json2num<T, true, 0>(value);
        if constexpr (std::is_floating_point_v<T>) {
            using Bits = std::conditional_t<sizeof(T) == 4, std::uint32_t, std::uint64_t>;
            char text[24];
            unsigned long long const bits = std::bit_cast<Bits>(element);
            std::snprintf(text, sizeof text, "0x%llX", bits);
            return text;
        } else {
            return std::to_string(element);
        }
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

// Integers come from the integer alternative of their signedness alone, up to their limits inclusive
// (the limits themselves are read in the tables above); a whole double is no integer. Every failure
// names the element type.
TEST(Json2Num, ConvertsOrRefuses)
{
    V const nan_object = object("zqdata", V("NaN"));
    const struct { V input; std::string (*convert)(fj::Value const&); std::string expected; } cases[] = {
        {V(fj::Object {{"other", V(1.0)}, {"zqdata", V("NaN")}}), converted<double>, "0xFFF8000000000000"},
        {V(3.4028234663852886e38), converted<float>, "0x7F7FFFFF"},
        {V(-3.4028234663852886e38), converted<float>, "0xFF7FFFFF"},
        {nan_object, converted<float>, "0xFFC00000"}, {V("Inf"), converted<float>, "0x7F800000"},
        {V(std::numeric_limits<double>::quiet_NaN()), converted<float>, "0x7FC00000"},
        {V(128LL), converted<signed char>, integral("int8")},
        {V(-129LL), converted<signed char>, integral("int8")},
        {V(1ULL), converted<signed char>, integral("int8")},
        {V(1.0), converted<signed char>, integral("int8")},
        {V(256ULL), converted<unsigned char>, integral("uint8")},
        {V(1LL), converted<unsigned char>, integral("uint8")},
        {V(1ULL), converted<long long>, integral("int64")},
        {V(1LL), converted<unsigned long long>, integral("uint64")},
        {V(1e39), converted<float>, floating("single")}, {V(1.0f), converted<float>, floating("single")},
        {object("zqdata", V(1.0)), converted<float>, floating("single")},
        {V("nan"), converted<double>, floating("double")}, {V("+Inf"), converted<double>, floating("double")},
        {V(true), converted<double>, floating("double")}, {V(1LL), converted<double>, floating("double")},
        {V(1.0f), converted<double>, floating("double")},
        {V(fj::Object {}), converted<double>, floating("double")},
        {object("zqdata", V(1.0)), converted<double>, floating("double")},
    };
    for (auto const& c : cases)
        EXPECT_EQ(c.convert(c.input), c.expected) << &c - cases;
}

} // namespace
