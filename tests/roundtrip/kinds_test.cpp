// Every kind that both directions know comes back whole from its text, under all four settings, and
// its text comes back unchanged from the array read; the kinds without single or sparse data also
// come back from the value tree. Kinds of one rule share a row as the elements of a cell.
#include "roundtrip_support.hpp"

#include <bit>
#include <limits>
#include <string>

namespace {

using namespace zq::test::roundtrip;
using zq::test::same_on_both_roads;
using namespace std::string_literals;
using ComplexDouble = std::complex<double>;
using ComplexSingle = std::complex<float>;
using Double = std::numeric_limits<double>;
using Single = std::numeric_limits<float>;

constexpr double nan = Double::quiet_NaN();
constexpr double inf = Double::infinity();
constexpr float fnan = Single::quiet_NaN();
constexpr float finf = Single::infinity();

struct KindCase {
    char const* name;
    zd::Array array;
};

// Each integer type's least, zero and greatest, as real numbers and as the parts of complex ones.
template <typename... T>
zd::Array integers()
{
    return cell({2, sizeof...(T)},
        {numbers<T>({1, 3}, {std::numeric_limits<T>::min(), T(0), std::numeric_limits<T>::max()})...,
            numbers<std::complex<T>>(
                {1, 2}, {{std::numeric_limits<T>::min(), std::numeric_limits<T>::max()}, {T(1), T(0)}})...});
}

zd::Array nested()
{
    return cell({1, 3},
        {cell({1, 1}, {cell({2, 1}, {scalar(1), charRow(u"x")})}),
            structs({1, 1}, {{"inner", {structs({2, 1}, {{"v", {scalar(2), logicals({1, 1}, {true})}}})}}}),
            cell({1, 2}, {})});
}

// Back from the text under every setting, and, whatever the filter and the indentation, the text written
// straight is the serialised tree; the kinds without single or sparse data also come back from the tree.
void comes_back(KindCase const& kind, bool through_the_tree)
{
    SCOPED_TRACE(kind.name);
    for (Setting const setting : settings) {
        SCOPED_TRACE(describe(setting) + ": " + text_of(kind.array, setting));
        expect_same(written_and_read(kind.array, setting, Path::Text), kind.array, setting);
        for (zd::ObjectFilter const filter : {zd::ObjectFilter::AllowListed, zd::ObjectFilter::DenyAll})
            for (unsigned const indent : {0u, 2u, 3u})
                EXPECT_TRUE(same_on_both_roads(kind.array, setting.mode, setting.nan, filter, indent));
        if (through_the_tree)
            expect_same(written_and_read(kind.array, setting, Path::Tree), kind.array, setting);
    }
}

TEST(RoundTrip, KindsComeBack)
{
    // The tree keeps single elements as floats and sparse coordinates as unsigned integers, which the
    // readers take from neither; the text turns both into plain numbers. These come back from the text only.
    KindCase const textOnly[] = {
        {"Single", cell({1, 2}, {numbers<float>({2, 4}, {0.1f, -0.0f, Single::max(), Single::lowest(),
            Single::min(), Single::denorm_min(), fnan, -finf}), numbers<float>({1, 1}, {5})})},
        {"ComplexSingle", numbers<ComplexSingle>({2, 1}, {{0.1f, Single::max()}, {-0.0f, 3}})},
        {"SparseDouble", sparse<double>({3, 2}, {{2, 1, 8.0}, {0, 1, 7.0}, {1, 0, -0.5}})},
        {"SparseKinds", cell({1, 7}, {sparse<double>({1, 1}, {{0, 0, 5.0}}),
            sparse<double>({2, 2}, {{0, 0, nan}, {1, 0, inf}, {1, 1, -inf}}),
            sparse<double>({1UL << 31, 1UL << 31}, {{(1UL << 31) - 1, 3, 1.0}}),
            sparse<float>({1, 3}, {{0, 2, 0.1f}, {0, 0, fnan}}),
            sparse<bool>({3, 2}, {{0, 0, true}, {2, 1, true}}),
            sparse<ComplexDouble>({3, 2}, {{2, 0, {1, 2}}, {0, 1, {0, -3}}, {1, 1, {nan, -inf}}}),
            sparse<ComplexSingle>({2, 2}, {{1, 1, {0.5f, finf}}, {0, 1, {0, 0.1f}}})})},
    };

    KindCase const kinds[] = {
        // Double, the one numeric kind with small forms: every shape the nesting can take.
        {"DoubleMatrix", doubles({2, 3}, {1, 4, 2, 5, 3, 6})}, {"DoubleScalar", scalar(5)},
        {"DoubleColumn", doubles({3, 1}, {1, 2, 3})}, {"CellEmpty", cell({0, 0}, {})},
        {"DoubleShapes", cell({1, 9}, {doubles({1, 3}, {1, 2, 3}), doubles({0, 0}, {}), doubles({0, 3}, {}),
            doubles({2, 0, 3}, {}), doubles({2, 1, 2}, {1, 2, 3, 4}), doubles({1, 1, 3}, {1, 2, 3}),
            doubles({2, 2, 2}, {1, 2, 3, 4, 5, 6, 7, 8}), doubles({1, 1, 1}, {7}),
            doubles({2, 3, 1}, {1, 2, 3, 4, 5, 6})})},
        {"DoubleDigits", doubles({2, 4}, {0.1, 0.1 + 0.2, -0.0, Double::max(), Double::lowest(),
            Double::min(), Double::denorm_min(), 1e21})},
        {"DoubleNonFinite", doubles({2, 2}, {nan, -inf, inf, 1})},
        {"DoubleNaNsOfAnySignAndPayload", doubles({1, 3}, {-nan,
            std::bit_cast<double>(0x7FF8000000000123ULL), std::bit_cast<double>(0x7FF0000000000001ULL)})},
        {"DoubleScalarNaN", scalar(nan)}, {"DoubleScalarsInCell", cell({1, 2}, {scalar(-inf), scalar(-0.0)})},
        {"SingleEmpty", numbers<float>({0, 0}, {})},
        {"Integers", integers<signed char, unsigned char, short, unsigned short, int, unsigned, long long,
            unsigned long long>()},
        {"IntegersBeyondDoubles", cell({1, 4}, {numbers<long long>({1, 1}, {(1LL << 53) + 1}),
            numbers<unsigned long long>({1, 1}, {(1ULL << 63) + 1}), numbers<unsigned>({3, 0}, {}),
            numbers<short>({2, 1, 2}, {1, -2, 3, -4})})},
        {"ComplexDouble", cell({1, 3}, {numbers<ComplexDouble>({0, 0}, {}),
            numbers<ComplexDouble>({1, 2}, {{1, 2}, {-0.0, Double::denorm_min()}}),
            numbers<ComplexDouble>({2, 1, 2}, {{1, 2}, {3, 4}, {5, 6}, {7, 8}})})},
        {"SparseEmpty",
            cell({1, 3}, {sparse<double>({3, 2}, {}), sparse<double>({0, 4}, {}), sparse<bool>({2, 2}, {})})},
        {"LogicalScalar", logicals({1, 1}, {true})},
        {"LogicalShapes", cell({1, 8}, {logicals({1, 1}, {false}), logicals({3, 1}, {true, false, true}),
            logicals({2, 3}, {true, false, false, true, true, false}), logicals({1, 2}, {false, true}),
            logicals({0, 0}, {}), logicals({1, 0}, {}), logicals({1, 1, 1}, {true}),
            logicals({2, 2, 2}, {true, false, false, false, true, true, false, true})})},
        {"CharRow", charRow(u"abc")},
        {"CharShapes", cell({1, 7}, {charRow(u"a"), charRow(u""), chars({1, 0}, u""), chars({0, 5}, u""),
            chars({3, 1}, u"abc"), chars({2, 3}, u"adbecf"), chars({2, 2, 2}, u"abcdefgh")})},
        {"CharNonAscii", charRow(u"\u00e9\u4e2d\U0001F600\uFEFF\uFFFF\u2028")},
        {"CharSurrogatesDown", chars({2, 1}, u"\U0001F600")},
        {"CharEscapes", charRow(std::u16string(u"\"\\/\b\f\n\r\t\x01\x1f\x7f\0z\0", 14))},
        // The text reader takes a high surrogate's escape only with another escape after it, so an unpaired
        // surrogate must leave in its three bytes, not as \ud800.
        {"UnpairedSurrogate", charRow(u"\xD800")},
        {"UnpairedSurrogates", cell({1, 5}, {charRow(u"\xDC00" u"a\xD800\x01\xDE00\xD800\xD800\x1f"),
            charRow(u"\xD800"), charRow(u"\xD800z"), chars({2, 1}, u"\xD83D\n"),
            strings({1, 1}, {u"a\xDBFF"s})})},
        {"StringNonAscii",
            strings({2, 2}, {u"\u00e9t\u00e9"s, u"\u4e2d\u6587"s, u"\U0001F600"s, u"a\0\"b"s})},
        {"Strings", cell({1, 6}, {strings({1, 2}, {u"abc"s, Text()}), strings({1, 1}, {u""s}),
            strings({1, 1}, {Text()}), strings({1, 1}, {u"missing"s}), strings({0, 0}, {}),
            strings({2, 1, 2}, {u"a"s, Text(), u""s, u"d"s})})},
        {"CellEmpty1x0", cell({1, 0}, {})}, {"CellUnsetElements", cell({2, 2}, {})},
        {"CellOfKinds", cell({2, 2}, {logicals({0, 0}, {}), numbers<signed char>({1, 1}, {-5}),
            strings({1, 1}, {Text()}), enums({1, 1}, "pkg.Color", {"red"})})},
        {"CellNested", nested()},
        {"CellPages", cell({1, 2, 2}, {scalar(1), scalar(2), charRow(u"c"), cell({0, 0}, {})})},
        {"StructOneByOne", structs({1, 1}, {{"a", {scalar(1)}}, {"b", {charRow(u"abc")}}})},
        {"StructColumn",
            structs({2, 1}, {{"a", {scalar(1), scalar(2)}}, {"b", {charRow(u"x"), charRow(u"y")}}})},
        {"StructRow", structs({1, 3}, {{"a", {scalar(1), doubles({0, 0}, {}), logicals({1, 1}, {false})}}})},
        {"StructPages", structs({2, 1, 2}, {{"v", {scalar(1), scalar(2), scalar(3), scalar(4)}}})},
        {"StructsWithoutFieldsOrElements", cell({1, 4}, {structs({1, 1}, {}), structs({2, 2}, {}),
            structs({0, 0}, {{"a", {}}, {"b", {}}}), structs({0, 1}, {{"a", {}}})})},
        {"StructFieldsNotInByteOrder",
            structs({1, 1}, {{"b", {scalar(2)}}, {"B", {scalar(1)}}, {"a_1", {scalar(3)}}})},
        {"StructLongestFieldName", structs({1, 1}, {{std::string(2049, 'n'), {scalar(1)}}})},
        {"StructNested", structs({1, 1}, {{"s", {structs({2, 1}, {{"t", {structs({1, 1}, {}),
            cell({1, 1}, {scalar(nan)})}}})}}, {"c", {nested()}}})},
        // Fields named like the header keys of a large form, too few of them to make one.
        {"StructFieldsNamedLikeHeaderKeys", cell({1, 3}, {structs({1, 1}, {{"zqdata", {charRow(u"nan")}}}),
            structs({1, 1}, {{"zqdata", {doubles({2, 1}, {5, 6})}}, {"zqsize", {doubles({2, 1}, {1, 2})}}}),
            structs({1, 1}, {{"zqsize", {doubles({2, 1}, {1, 1})}}, {"zqtype", {charRow(u"double")}}})})},
        {"EnumRow", enums({1, 2}, "pkg.Color", {"red", "blue"})},
        {"Enums", cell({1, 4}, {enums({1, 1}, "pkg.Color", {"green"}),
            enums({2, 2}, "a.b.Level", {"low", "high", "mid", "low"}),
            enums({1, 1, 2}, "Color", {"red", "red"}), factory.createEnumArray({1, 2}, "pkg.Color")})},
    };
    for (KindCase const& kind : textOnly)
        comes_back(kind, false);
    for (KindCase const& kind : kinds)
        comes_back(kind, true);
}

} // namespace
