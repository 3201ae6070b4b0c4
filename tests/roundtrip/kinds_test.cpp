// Every kind that both directions know comes back whole from its text, under all four settings, and
// its text comes back unchanged from the array read; the kinds without single or sparse data also
// come back from the value tree.
#include "roundtrip_support.hpp"

#include <algorithm>
#include <bit>
#include <iterator>
#include <limits>
#include <string>
#include <vector>

namespace {

using namespace zq::test::roundtrip;
using namespace std::string_literals;
using ComplexDouble = std::complex<double>;
using ComplexSingle = std::complex<float>;
using Double = std::numeric_limits<double>;
using Single = std::numeric_limits<float>;

constexpr double nan = Double::quiet_NaN();
constexpr double inf = Double::infinity();
constexpr float fnan = Single::quiet_NaN();
constexpr float finf = Single::infinity();

// The tree keeps single elements as floats and sparse coordinates as unsigned integers, which the
// readers take from neither; the text turns both into plain numbers.
enum class Paths { TextAndTree, TextOnly };
using enum Paths;

struct KindCase {
    char const* name;
    zd::Array (*make)();
    Paths paths;
};

template <typename T>
zd::Array extremes()
{
    using Limits = std::numeric_limits<T>;
    return numbers<T>({1, 3}, {Limits::min(), T(0), Limits::max()});
}

template <typename T>
zd::Array complexExtremes()
{
    using Limits = std::numeric_limits<T>;
    return numbers<std::complex<T>>({1, 2}, {{Limits::min(), Limits::max()}, {T(1), T(0)}});
}

zd::Array nested()
{
    return cell({1, 3},
        {cell({1, 1}, {cell({2, 1}, {scalar(1), charRow(u"x")})}),
            structs({1, 1}, {{"inner", {structs({2, 1}, {{"v", {scalar(2), logicals({1, 1}, {true})}}})}}}),
            cell({1, 2}, {})});
}

static KindCase const kinds[] = {
    // Double, the one numeric kind with small forms: every shape the nesting can take.
    {"DoubleMatrix", [] { return doubles({2, 3}, {1, 4, 2, 5, 3, 6}); }, TextAndTree},
    {"DoubleScalar", [] { return scalar(5); }, TextAndTree},
    {"DoubleRow", [] { return doubles({1, 3}, {1, 2, 3}); }, TextAndTree},
    {"DoubleColumn", [] { return doubles({3, 1}, {1, 2, 3}); }, TextAndTree},
    {"DoubleEmpty0x0", [] { return doubles({0, 0}, {}); }, TextAndTree},
    {"DoubleEmpty0x3", [] { return doubles({0, 3}, {}); }, TextAndTree},
    {"DoubleEmpty2x0x3", [] { return doubles({2, 0, 3}, {}); }, TextAndTree},
    {"DoublePages2x1x2", [] { return doubles({2, 1, 2}, {1, 2, 3, 4}); }, TextAndTree},
    {"DoubleCube2x2x2", [] { return doubles({2, 2, 2}, {1, 2, 3, 4, 5, 6, 7, 8}); }, TextAndTree},
    {"DoubleTube1x1x3", [] { return doubles({1, 1, 3}, {1, 2, 3}); }, TextAndTree},
    {"Double1x1x1", [] { return doubles({1, 1, 1}, {7}); }, TextAndTree},
    {"DoubleTrailingOne2x3x1", [] { return doubles({2, 3, 1}, {1, 2, 3, 4, 5, 6}); }, TextAndTree},
    {"DoubleDigits",
        [] {
            return doubles({2, 4}, {0.1, 0.1 + 0.2, -0.0, Double::max(), Double::lowest(), Double::min(),
                                       Double::denorm_min(), 1e21});
        },
        TextAndTree},
    {"DoubleNonFinite", [] { return doubles({2, 2}, {nan, -inf, inf, 1}); }, TextAndTree},
    {"DoubleNaNsOfAnySignAndPayload",
        [] {
            return doubles({1, 3}, {-nan, std::bit_cast<double>(0x7FF8000000000123ULL),
                                       std::bit_cast<double>(0x7FF0000000000001ULL)});
        },
        TextAndTree},
    {"DoubleScalarNaN", [] { return scalar(nan); }, TextAndTree},
    {"DoubleScalarMinusInf", [] { return scalar(-inf); }, TextAndTree},
    {"DoubleScalarMinusZero", [] { return scalar(-0.0); }, TextAndTree},

    {"Single",
        [] {
            return numbers<float>({2, 4}, {0.1f, -0.0f, Single::max(), Single::lowest(), Single::min(),
                                              Single::denorm_min(), fnan, -finf});
        },
        TextOnly},
    {"SingleScalar", [] { return numbers<float>({1, 1}, {5}); }, TextOnly},
    {"SingleEmpty", [] { return numbers<float>({0, 0}, {}); }, TextAndTree},

    {"Int8", extremes<signed char>, TextAndTree},
    {"Uint8", extremes<unsigned char>, TextAndTree},
    {"Int16", extremes<short>, TextAndTree},
    {"Uint16", extremes<unsigned short>, TextAndTree},
    {"Int32", extremes<int>, TextAndTree},
    {"Uint32", extremes<unsigned int>, TextAndTree},
    {"Int64", extremes<long long>, TextAndTree},
    {"Uint64", extremes<unsigned long long>, TextAndTree},
    {"Int64BeyondDoubles", [] { return numbers<long long>({1, 1}, {(1LL << 53) + 1}); }, TextAndTree},
    {"Uint64BeyondDoubles", [] { return numbers<unsigned long long>({1, 1}, {(1ULL << 63) + 1}); },
        TextAndTree},
    {"Int16Pages", [] { return numbers<short>({2, 1, 2}, {1, -2, 3, -4}); }, TextAndTree},
    {"Uint32Empty", [] { return numbers<unsigned int>({3, 0}, {}); }, TextAndTree},

    {"ComplexDouble", [] { return numbers<ComplexDouble>({1, 2}, {{1, 2}, {-0.0, Double::denorm_min()}}); },
        TextAndTree},
    {"ComplexDoublePages", [] { return numbers<ComplexDouble>({2, 1, 2}, {{1, 2}, {3, 4}, {5, 6}, {7, 8}}); },
        TextAndTree},
    {"ComplexDoubleEmpty", [] { return numbers<ComplexDouble>({0, 0}, {}); }, TextAndTree},
    {"ComplexSingle", [] { return numbers<ComplexSingle>({2, 1}, {{0.1f, Single::max()}, {-0.0f, 3}}); },
        TextOnly},
    {"ComplexInt8", complexExtremes<signed char>, TextAndTree},
    {"ComplexUint8", complexExtremes<unsigned char>, TextAndTree},
    {"ComplexInt16", complexExtremes<short>, TextAndTree},
    {"ComplexUint16", complexExtremes<unsigned short>, TextAndTree},
    {"ComplexInt32", complexExtremes<int>, TextAndTree},
    {"ComplexUint32", complexExtremes<unsigned int>, TextAndTree},
    {"ComplexInt64", complexExtremes<long long>, TextAndTree},
    {"ComplexUint64", complexExtremes<unsigned long long>, TextAndTree},

    {"SparseDouble", [] { return sparse<double>({3, 2}, {{2, 1, 8.0}, {0, 1, 7.0}, {1, 0, -0.5}}); },
        TextOnly},
    {"SparseDoubleNonFinite", [] { return sparse<double>({2, 2}, {{0, 0, nan}, {1, 0, inf}, {1, 1, -inf}}); },
        TextOnly},
    {"SparseDoubleNoNonZeros", [] { return sparse<double>({3, 2}, {}); }, TextAndTree},
    {"SparseDoubleEmpty", [] { return sparse<double>({0, 4}, {}); }, TextAndTree},
    {"SparseDoubleScalar", [] { return sparse<double>({1, 1}, {{0, 0, 5.0}}); }, TextOnly},
    {"SparseDoubleHuge", [] { return sparse<double>({1UL << 31, 1UL << 31}, {{(1UL << 31) - 1, 3, 1.0}}); },
        TextOnly},
    {"SparseSingle", [] { return sparse<float>({1, 3}, {{0, 2, 0.1f}, {0, 0, fnan}}); }, TextOnly},
    {"SparseLogical", [] { return sparse<bool>({3, 2}, {{0, 0, true}, {2, 1, true}}); }, TextOnly},
    {"SparseLogicalNoNonZeros", [] { return sparse<bool>({2, 2}, {}); }, TextAndTree},
    {"SparseComplexDouble",
        [] { return sparse<ComplexDouble>({3, 2}, {{2, 0, {1, 2}}, {0, 1, {0, -3}}, {1, 1, {nan, -inf}}}); },
        TextOnly},
    {"SparseComplexSingle",
        [] { return sparse<ComplexSingle>({2, 2}, {{1, 1, {0.5f, finf}}, {0, 1, {0, 0.1f}}}); }, TextOnly},

    {"LogicalScalarTrue", [] { return logicals({1, 1}, {true}); }, TextAndTree},
    {"LogicalScalarFalse", [] { return logicals({1, 1}, {false}); }, TextAndTree},
    {"LogicalMatrix", [] { return logicals({2, 3}, {true, false, false, true, true, false}); }, TextAndTree},
    {"LogicalColumn", [] { return logicals({3, 1}, {true, false, true}); }, TextAndTree},
    {"LogicalRow", [] { return logicals({1, 2}, {false, true}); }, TextAndTree},
    {"LogicalEmpty0x0", [] { return logicals({0, 0}, {}); }, TextAndTree},
    {"LogicalEmpty1x0", [] { return logicals({1, 0}, {}); }, TextAndTree},
    {"Logical1x1x1", [] { return logicals({1, 1, 1}, {true}); }, TextAndTree},
    {"LogicalCube", [] { return logicals({2, 2, 2}, {true, false, false, false, true, true, false, true}); },
        TextAndTree},

    {"CharRow", [] { return charRow(u"abc"); }, TextAndTree},
    {"CharOne", [] { return charRow(u"a"); }, TextAndTree},
    {"CharEmpty0x0", [] { return charRow(u""); }, TextAndTree},
    {"CharEmpty1x0", [] { return chars({1, 0}, u""); }, TextAndTree},
    {"CharEmpty0x5", [] { return chars({0, 5}, u""); }, TextAndTree},
    {"CharColumn", [] { return chars({3, 1}, u"abc"); }, TextAndTree},
    {"CharMatrix", [] { return chars({2, 3}, u"adbecf"); }, TextAndTree},
    {"CharCube", [] { return chars({2, 2, 2}, u"abcdefgh"); }, TextAndTree},
    {"CharNonAscii", [] { return charRow(u"\u00e9\u4e2d\U0001F600\uFEFF\uFFFF\u2028"); }, TextAndTree},
    {"CharSurrogatesDown", [] { return chars({2, 1}, u"\U0001F600"); }, TextAndTree},
    {"CharEscapes", [] { return charRow(std::u16string(u"\"\\/\b\f\n\r\t\x01\x1f\x7f\0z\0", 14)); },
        TextAndTree},
    // An unpaired surrogate comes back when a \u escape follows it; see UnpairedHighSurrogate below.
    {"CharUnpairedSurrogates", [] { return charRow(u"\xDC00" u"a\xD800\x01\xDE00\xD800\xD800\x1f"); },
        TextAndTree},

    {"StringRowWithMissing", [] { return strings({1, 2}, {u"abc"s, Text()}); }, TextAndTree},
    {"StringEmptyText", [] { return strings({1, 1}, {u""s}); }, TextAndTree},
    {"StringMissing", [] { return strings({1, 1}, {Text()}); }, TextAndTree},
    {"StringTheWordMissing", [] { return strings({1, 1}, {u"missing"s}); }, TextAndTree},
    {"StringNonAscii",
        [] {
            return strings({2, 2}, {u"\u00e9t\u00e9"s, u"\u4e2d\u6587"s, u"\U0001F600"s, u"a\0\"b"s});
        },
        TextAndTree},
    {"StringEmpty", [] { return strings({0, 0}, {}); }, TextAndTree},
    {"StringPages", [] { return strings({2, 1, 2}, {u"a"s, Text(), u""s, u"d"s}); }, TextAndTree},

    {"CellOneAndAbc", [] { return cell({1, 2}, {scalar(1), charRow(u"abc")}); }, TextAndTree},
    {"CellEmpty", [] { return cell({0, 0}, {}); }, TextAndTree},
    {"CellEmpty1x0", [] { return cell({1, 0}, {}); }, TextAndTree},
    {"CellUnsetElements", [] { return cell({2, 2}, {}); }, TextAndTree},
    {"CellOfKinds",
        [] {
            return cell({2, 2}, {logicals({0, 0}, {}), numbers<signed char>({1, 1}, {-5}),
                                    strings({1, 1}, {Text()}), enums({1, 1}, "pkg.Color", {"red"})});
        },
        TextAndTree},
    {"CellWithSingleAndSparse",
        [] { return cell({1, 2}, {numbers<float>({1, 1}, {0.1f}), sparse<double>({2, 2}, {{1, 1, nan}})}); },
        TextOnly},
    {"CellNested", nested, TextAndTree},
    {"CellPages", [] { return cell({1, 2, 2}, {scalar(1), scalar(2), charRow(u"c"), cell({0, 0}, {})}); },
        TextAndTree},

    {"StructOneByOne", [] { return structs({1, 1}, {{"a", {scalar(1)}}, {"b", {charRow(u"abc")}}}); },
        TextAndTree},
    {"StructColumn",
        [] {
            return structs({2, 1}, {{"a", {scalar(1), scalar(2)}}, {"b", {charRow(u"x"), charRow(u"y")}}});
        },
        TextAndTree},
    {"StructRow",
        [] { return structs({1, 3}, {{"a", {scalar(1), doubles({0, 0}, {}), logicals({1, 1}, {false})}}}); },
        TextAndTree},
    {"StructPages", [] { return structs({2, 1, 2}, {{"v", {scalar(1), scalar(2), scalar(3), scalar(4)}}}); },
        TextAndTree},
    {"StructNoFields1x1", [] { return structs({1, 1}, {}); }, TextAndTree},
    {"StructNoFields2x2", [] { return structs({2, 2}, {}); }, TextAndTree},
    {"StructEmptyWithFields", [] { return structs({0, 0}, {{"a", {}}, {"b", {}}}); }, TextAndTree},
    {"StructEmpty0x1WithField", [] { return structs({0, 1}, {{"a", {}}}); }, TextAndTree},
    {"StructFieldsNotInByteOrder",
        [] { return structs({1, 1}, {{"b", {scalar(2)}}, {"B", {scalar(1)}}, {"a_1", {scalar(3)}}}); },
        TextAndTree},
    {"StructLongestFieldName", [] { return structs({1, 1}, {{std::string(2049, 'n'), {scalar(1)}}}); },
        TextAndTree},
    {"StructNested",
        [] {
            zd::Array const inner
                = structs({2, 1}, {{"t", {structs({1, 1}, {}), cell({1, 1}, {scalar(nan)})}}});
            return structs({1, 1}, {{"s", {inner}}, {"c", {nested()}}});
        },
        TextAndTree},
    // Fields named like the header keys of a large form, too few of them to make one.
    {"StructFieldZqdataOfText", [] { return structs({1, 1}, {{"zqdata", {charRow(u"nan")}}}); }, TextAndTree},
    {"StructFieldsZqdataZqsize",
        [] {
            return structs(
                {1, 1}, {{"zqdata", {doubles({2, 1}, {5, 6})}}, {"zqsize", {doubles({2, 1}, {1, 2})}}});
        },
        TextAndTree},
    {"StructFieldsZqsizeZqtype",
        [] {
            return structs({1, 1}, {{"zqsize", {doubles({2, 1}, {1, 1})}}, {"zqtype", {charRow(u"double")}}});
        },
        TextAndTree},

    {"EnumRow", [] { return enums({1, 2}, "pkg.Color", {"red", "blue"}); }, TextAndTree},
    {"EnumScalar", [] { return enums({1, 1}, "pkg.Color", {"green"}); }, TextAndTree},
    {"EnumMatrix", [] { return enums({2, 2}, "a.b.Level", {"low", "high", "mid", "low"}); }, TextAndTree},
    {"EnumPages", [] { return enums({1, 1, 2}, "Color", {"red", "red"}); }, TextAndTree},
    {"EnumUnsetMembers", [] { return zd::Array(factory.createEnumArray({1, 2}, "pkg.Color")); }, TextAndTree},
};

std::vector<KindCase> withoutSingleOrSparseData()
{
    std::vector<KindCase> rows;
    std::copy_if(std::begin(kinds), std::end(kinds), std::back_inserter(rows),
        [](KindCase const& row) { return row.paths == TextAndTree; });
    return rows;
}

std::string rowName(::testing::TestParamInfo<KindCase> const& info)
{
    return info.param.name;
}

class Kinds : public ::testing::TestWithParam<KindCase> {};
class KindsThroughTheTree : public Kinds {};

TEST_P(Kinds, ComeBackFromTheirText)
{
    zd::Array const array = GetParam().make();
    for (Setting const setting : settings) {
        std::string const text = text_of(array, setting);
        SCOPED_TRACE(describe(setting) + ": " + text);
        zd::Array const back = from_text(text);
        EXPECT_EQ(back.getType(), array.getType());
        EXPECT_EQ(back.getDimensions(), array.getDimensions());
        EXPECT_TRUE(back == array);
        EXPECT_EQ(floating_bits(back), floating_bits_as_read(array));
        EXPECT_EQ(text_of(back, setting), text);
    }
}

TEST_P(KindsThroughTheTree, ComeBackFromTheirTree)
{
    zd::Array const array = GetParam().make();
    for (Setting const setting : settings) {
        SCOPED_TRACE(describe(setting));
        zd::Array const back = written_and_read(array, setting, Path::Tree);
        EXPECT_TRUE(back == array) << text_of(back, setting);
        EXPECT_EQ(floating_bits(back), floating_bits_as_read(array));
    }
}

// The text reader takes a high surrogate's escape only with another escape after it, so an unpaired
// high surrogate must leave in its three bytes, not as \ud800.
TEST(UnpairedHighSurrogate, ComesBackFromItsText)
{
    zd::Array const arrays[] = {
        charRow(u"\xD800"),
        charRow(u"\xD800z"),
        chars({2, 1}, u"\xD83D\n"),
        strings({1, 1}, {u"a\xDBFF"s}),
    };
    for (zd::Array const& array : arrays) {
        for (Setting const setting : settings) {
            std::string const text = text_of(array, setting);
            SCOPED_TRACE(describe(setting) + ": " + text);
            zd::Array back;
            EXPECT_NO_THROW(back = from_text(text));
            EXPECT_TRUE(back == array);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(RoundTrip, Kinds, ::testing::ValuesIn(kinds), rowName);
INSTANTIATE_TEST_SUITE_P(
    RoundTrip, KindsThroughTheTree, ::testing::ValuesIn(withoutSingleOrSparseData()), rowName);

} // namespace
