// The UTF-8 / UTF-16 converters and the failures they throw.
#include <yx/i18n/codecvt.hpp>

#include <yx/i18n/cvt_exception.hpp>

#include <expect_throw.hpp>

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace {

using namespace std::literals;
using yx::i18n::codecvt_string_to_ustring;
using yx::i18n::codecvt_ustring_to_string;
using yx::i18n::CvtExceptionBase;
using yx::i18n::CvtInvalidCharacter;
using yx::i18n::CvtUnsupportedEncoding;

constexpr bool bothFlags[] = {false, true};

// The converters read from exact-size heap copies, so that AddressSanitizer reports any read past
// the end; an empty copy has no buffer at all.
std::u16string decode(std::string_view utf8, bool allowSurrogates)
{
    std::vector<char> const copy(utf8.begin(), utf8.end());
    return codecvt_string_to_ustring("UTF-8", allowSurrogates).convert(copy.data(), copy.size());
}

std::string encode(std::u16string_view utf16, bool allowSurrogates)
{
    std::vector<char16_t> const copy(utf16.begin(), utf16.end());
    return codecvt_ustring_to_string("UTF-8", allowSurrogates).convert(copy.data(), copy.size());
}

std::string utf8Error(std::size_t offset)
{
    return "Invalid UTF-8 byte sequence at byte offset " + std::to_string(offset);
}

std::string utf16Error(std::size_t offset)
{
    return "Invalid UTF-16 code unit at offset " + std::to_string(offset);
}

struct TextPair {
    char const* name;
    std::u16string_view utf16;
    std::string_view utf8;
};

// Well-formed text, converted alike under both flags; includes both sides of every length boundary.
static const TextPair wellFormed[] = {
    {"Empty", u""sv, ""sv}, {"Ascii", u"Hello, world! {\"k\": [1.5e3]}"sv, "Hello, world! {\"k\": [1.5e3]}"sv},
    {"NulInside", u"a\0b\0"sv, "a\0b\0"sv}, {"LastOneByte", u"\u007F"sv, "\x7F"sv},
    {"FirstTwoByte", u"\u0080"sv, "\xC2\x80"sv}, {"LastTwoByte", u"\u07FF"sv, "\xDF\xBF"sv},
    {"FirstThreeByte", u"\u0800"sv, "\xE0\xA0\x80"sv}, {"BelowSurrogates", u"\uD7FF"sv, "\xED\x9F\xBF"sv},
    {"AboveSurrogates", u"\uE000"sv, "\xEE\x80\x80"sv}, {"ByteOrderMark", u"\uFEFF"sv, "\xEF\xBB\xBF"sv},
    {"LastThreeByte", u"\uFFFF"sv, "\xEF\xBF\xBF"sv}, {"FirstFourByte", u"\U00010000"sv, "\xF0\x90\x80\x80"sv},
    {"LastFourByte", u"\U0010FFFF"sv, "\xF4\x8F\xBF\xBF"sv},
    {"Mixed", u"a\u00E9\u20AC\U0001F600z"sv, "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80z"sv},
    {"AdjacentPairs", u"\U0001F600\U00010000"sv, "\xF0\x9F\x98\x80\xF0\x90\x80\x80"sv},
};

// Surrogates, refused at strictOffset unless allowed, and then converted to lenient.
template <typename Input, typename Output>
struct Surrogates {
    char const* name;
    Input input;
    std::size_t strictOffset;
    Output lenient;
};

static const Surrogates<std::string_view, std::u16string_view> surrogateBytes[] = {
    {"FirstHigh", "\xED\xA0\x80"sv, 0, u"\xD800"sv}, {"LastHigh", "\xED\xAF\xBF"sv, 0, u"\xDBFF"sv},
    {"FirstLow", "x\xED\xB0\x80"sv, 1, u"x\xDC00"sv}, {"LastLow", "xy\xED\xBF\xBF"sv, 2, u"xy\xDFFF"sv},
    {"HighThenLowMakeAPair", "\xED\xA0\xBD\xED\xB8\x80"sv, 0, u"\xD83D\xDE00"sv},
    {"LowThenHigh", "\xED\xB8\x80\xED\xA0\xBD"sv, 0, u"\xDE00\xD83D"sv},
    {"AfterFourByte", "\xF0\x9F\x98\x80\xED\xA0\x80"sv, 4, u"\xD83D\xDE00\xD800"sv},
};

struct IllFormed {
    char const* name;
    std::string_view utf8;
    std::size_t offset;
};

// Refused under both flags, at the first byte of the sequence that cannot be taken.
static const IllFormed illFormed[] = {
    {"C0Lead", "\xC0\x80"sv, 0}, {"C1Lead", "ab\xC1\xBF"sv, 2}, {"F5Lead", "\xF5\x80\x80\x80"sv, 0},
    {"FFByte", "abc\xFF"sv, 3}, {"StrayContinuation", "a\x80"sv, 1},
    {"StrayContinuationAfterSequence", "\xC3\xA9\xBF"sv, 2}, {"TruncatedTwoByteAtEnd", "abc\xC3"sv, 3},
    {"TruncatedThreeByteAtEnd", "ab\xE2\x82"sv, 2}, {"TruncatedFourByteAtEnd", "\xF0\x9F\x98"sv, 0},
    {"TruncatedSurrogateAtEnd", "\xED\xA0"sv, 0}, {"InterruptedByAscii", "\xE2\x82" "A"sv, 0},
    {"InterruptedByLead", "x\xC3\xC3\xA9"sv, 1}, {"FourByteInterruptedAtLastByte", "\xF0\x9F\x98" "A"sv, 0},
    {"SurrogateInterrupted", "\xED\xA0\xC0"sv, 0}, {"OverlongThreeByteLow", "\xE0\x80\x80"sv, 0},
    {"OverlongThreeByteHigh", "\xE0\x9F\xBF"sv, 0}, {"OverlongFourByteLow", "\xF0\x80\x80\x80"sv, 0},
    {"OverlongFourByteHigh", "z\xF0\x8F\xBF\xBF"sv, 1}, {"JustAboveMaximum", "\xF4\x90\x80\x80"sv, 0},
    {"AfterMultibyteCountsBytes", "\xE2\x82\xAC\xF0\x9F\x98\x80\xC0"sv, 7},
};

static const Surrogates<std::u16string_view, std::string_view> loneSurrogates[] = {
    {"HighAtStart", u"\xD800" u"ab"sv, 0, "\xED\xA0\x80" "ab"sv},
    {"HighInMiddle", u"a\xDBFF" u"b"sv, 1, "a\xED\xAF\xBF" "b"sv},
    {"HighAtEnd", u"ab\xD83D"sv, 2, "ab\xED\xA0\xBD"sv}, {"LowAtStart", u"\xDC00" u"ab"sv, 0, "\xED\xB0\x80" "ab"sv},
    {"LowInMiddle", u"a\xDFFF" u"b"sv, 1, "a\xED\xBF\xBF" "b"sv}, {"LowAtEnd", u"ab\xDE00"sv, 2, "ab\xED\xB8\x80"sv},
    {"HighBeforePair", u"\xD800\xD83D\xDE00"sv, 0, "\xED\xA0\x80\xF0\x9F\x98\x80"sv},
    {"LowThenHigh", u"\xDC00\xD800"sv, 0, "\xED\xB0\x80\xED\xA0\x80"sv},
    {"LowThenLow", u"\xDC00\xDFFF"sv, 0, "\xED\xB0\x80\xED\xBF\xBF"sv},
    {"LowAfterPair", u"\xD83D\xDE00\xDC00"sv, 2, "\xF0\x9F\x98\x80\xED\xB0\x80"sv},
    {"AfterAsciiRun", u"0123456789\xDC00"sv, 10, "0123456789\xED\xB0\x80"sv},
};

// Every name but these four is refused, however close.
static const std::string_view acceptedNames[] = {"UTF-8", "utf-8", "UTF8", "utf8"};
static const std::string_view refusedNames[] = {
    "", "UTF-16", "utf-16", "Utf-8", "UTF_8", "utf 8", "UTF-8 ", " utf8", "latin1", "ASCII",
};

TEST(Utf8ToUtf16, RefusesIllFormedBytesUnderBothFlags)
{
    for (IllFormed const& c : illFormed)
        for (bool flag : bothFlags) {
            SCOPED_TRACE(testing::Message() << c.name << " allowSurrogates=" << flag);
            EXPECT_THROW_WHAT(decode(c.utf8, flag), CvtInvalidCharacter, utf8Error(c.offset));
        }
}

// 65536 copies of a 16-byte sample with every sequence length: exactly 1 MiB of UTF-8.
TEST(Utf8AndUtf16, ConvertOneMebibyteBothWays)
{
    std::u16string utf16;
    std::string utf8;
    for (int i = 0; i < 65536; ++i) {
        utf16 += u"ab\u00E9\u20AC\U0001F600wxyz!";
        utf8 += "ab\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80wxyz!";
    }
    for (bool flag : bothFlags) {
        EXPECT_TRUE(decode(utf8, flag) == utf16);
        EXPECT_TRUE(encode(utf16, flag) == utf8);
    }
    EXPECT_THROW_WHAT(decode(utf8 + '\xFF', false), CvtInvalidCharacter, utf8Error(1048576));
    EXPECT_THROW_WHAT(encode(utf16 + u'\xDC00', false), CvtInvalidCharacter, utf16Error(720896));
}

TEST(Utf8AndUtf16, RefuseUnknownEncodingNames)
{
    for (std::string_view name : acceptedNames) {
        EXPECT_NO_THROW(codecvt_string_to_ustring(std::string(name), false));
        EXPECT_NO_THROW(codecvt_ustring_to_string(std::string(name), true));
    }
    for (std::string_view name : refusedNames) {
        std::string const text = "Unsupported encoding: " + std::string(name);
        EXPECT_THROW_WHAT(codecvt_string_to_ustring(std::string(name), true), CvtUnsupportedEncoding, text);
        EXPECT_THROW_WHAT(codecvt_ustring_to_string(std::string(name), false), CvtUnsupportedEncoding, text);
    }
    static_assert(std::is_base_of_v<CvtExceptionBase, CvtInvalidCharacter>);
    static_assert(std::is_base_of_v<CvtExceptionBase, CvtUnsupportedEncoding>);
}

// The ASCII fast paths test whole words; a non-ASCII unit must be seen wherever it lies in one, and
// the text must end where it ends.
TEST(Utf8AndUtf16, ConvertWellFormedTextAtEveryPositionInAWord)
{
    for (std::size_t before = 0; before <= 17; ++before) {
        SCOPED_TRACE(testing::Message() << "after " << before << " ASCII characters");
        for (TextPair const& c : wellFormed)
            for (bool flag : bothFlags) {
                SCOPED_TRACE(testing::Message() << c.name << " allowSurrogates=" << flag);
                std::u16string const utf16 = std::u16string(before, u'a') + std::u16string(c.utf16);
                std::string const utf8 = std::string(before, 'a') + std::string(c.utf8);
                EXPECT_EQ(encode(utf16, flag), utf8);
                EXPECT_EQ(decode(utf8, flag), utf16);
                EXPECT_EQ(encode(utf16 + u"bcdefghijk", flag), utf8 + "bcdefghijk");
                EXPECT_EQ(decode(utf8 + "bcdefghijk", flag), utf16 + u"bcdefghijk");
            }
        EXPECT_THROW_WHAT(encode(std::u16string(before, u'a') + u"\xDC00" u"bcdefghijk", false), CvtInvalidCharacter,
                          utf16Error(before));
        for (char bad : {'\x80', '\xC3', '\xFF'})
            EXPECT_THROW_WHAT(decode(std::string(before, 'a') + bad + "bcdefghijk", false), CvtInvalidCharacter,
                              utf8Error(before));
    }
}

TEST(Utf8AndUtf16, SurrogatesNeedTheFlag)
{
    for (auto const& c : surrogateBytes) {
        SCOPED_TRACE(c.name);
        EXPECT_THROW_WHAT(decode(c.input, false), CvtInvalidCharacter, utf8Error(c.strictOffset));
        EXPECT_EQ(decode(c.input, true), c.lenient);
    }
    for (auto const& c : loneSurrogates) {
        SCOPED_TRACE(c.name);
        EXPECT_THROW_WHAT(encode(c.input, false), CvtInvalidCharacter, utf16Error(c.strictOffset));
        EXPECT_EQ(encode(c.input, true), c.lenient);
        EXPECT_EQ(decode(c.lenient, true), c.input);
    }
}

} // namespace
