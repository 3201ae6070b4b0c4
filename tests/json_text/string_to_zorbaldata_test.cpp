// The entry from JSON text to an array: values converted, syntax errors and text left over refused.
#include "reading_paths.hpp"

#include <foundation/zorbaldata/json/string_to_zorbaldata.hpp>

#include "expect_throw.hpp"

#include <foundation/json/parser_exception.hpp>
#include <foundation/zorbaldata.hpp>
#include <foundation/zorbaldata/json/convert_error.hpp>
#include <yx/i18n/cvt_exception.hpp>

#include <cmath>
#include <string>

namespace {

namespace fj = foundation::json;
namespace zd = foundation::zorbaldata;
using Dims = std::vector<unsigned long>;

zd::Array convert(std::string const& text)
{
    return zq::test::read_both_ways(text);
}

TEST(StringToZorbaldata, ScalarsBecomeArrays)
{
    zd::Array const number = convert("1.5");
    EXPECT_EQ(number.getType(), zd::ArrayType::DOUBLE);
    EXPECT_EQ(number.getDimensions(), (Dims{1, 1}));
    EXPECT_EQ(zd::TypedArray<double>(number)[0], 1.5);
    EXPECT_EQ(convert("true").getType(), zd::ArrayType::LOGICAL);
    EXPECT_EQ(convert("\"hi\"").getDimensions(), (Dims{1, 2}));
    EXPECT_TRUE(std::isinf(zd::TypedArray<double>(convert("1" + std::string(100'000, '0')))[0]));
}

TEST(StringToZorbaldata, RefusesTextThatIsNotExactlyOneValue)
{
    static const struct {
        char const* name;
        std::string text;
        std::string message;
    } cases[] = {
        {"Empty", "", "JSON ParserException (E0019): Unexpected end of text (Line 1, Column 0)\n\t\n\t^"},
        {"BlankBefore", " 1", "JSON ParserException (E0008): Expected a string (opening quote) (Line 1, Column 0)\n\t 1\n\t^"},
        {"BlankAfter", "1 ", "JSON ParserException (E0000): Parse incomplete (Line 1, Column 1)\n\t1 \n\t ^"},
        {"LineEndAfter", "1\n", "JSON ParserException (E0000): Parse incomplete (Line 1, Column 1)\n\t1\n\t ^"},
        {"SecondValue", "[][]", "JSON ParserException (E0000): Parse incomplete (Line 1, Column 2)\n\t[][]\n\t  ^"},
        {"Truncated", "{\"a\":[tr", "JSON ParserException (E0008): Expected a string (opening quote) (Line 1, Column 6)\n\t{\"a\":[tr\n\t      ^"},
        {"DeepNesting", std::string(1'000'000, '['),
         "JSON ParserException (E0021): Arrays and objects nested too deeply (Line 1, Column 1000)\n\t"
             + std::string(160, '[') + "\n\t" + std::string(80, ' ') + "^"},
    };
    for (auto const& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_THROW_WHAT(convert(c.text), fj::ParserException, c.message);
    }
}

TEST(StringToZorbaldata, ConversionFailuresPassThrough)
{
    EXPECT_THROW_WHAT(convert("null"), zd::json::InvalidInputJSONValue,
                      "Input value is either foundation::json::Undefined or foundation::json::Null. "
                      "The value cannot be converted to ZORBAL Data Array.");
    EXPECT_THROW(convert("\"\xC0\xAF\""), yx::i18n::CvtInvalidCharacter);
}

// A caller that skips bytes of its own around the value, as the command-line tool does, gets the
// positions of the whole text back.
TEST(StringToZorbaldata, PartOfATextReportsPlacesInTheWhole)
{
    zd::ArrayFactory factory;
    std::string const good = "  [1,2]\n";
    zd::Array const array = zd::json::string_to_zorbaldata(good, good.begin() + 2, good.end() - 1, factory);
    EXPECT_EQ(array.getDimensions(), (Dims{2, 1}));

    static const struct {
        char const* name;
        std::string text;
        std::size_t skipped_before, skipped_after;
        std::string message;
    } cases[] = {
        {"SyntaxOnSecondLine", "\n [1,\n x]\n", 2, 1,
         "JSON ParserException (E0008): Expected a string (opening quote) (Line 3, Column 1)\n\t x]\n\t ^"},
        {"MoreAfterTheValue", " 1 2 ", 1, 1, "JSON ParserException (E0000): Parse incomplete (Line 1, Column 2)\n\t 1 2 \n\t  ^"},
        {"NothingBetween", "   ", 3, 0, "JSON ParserException (E0019): Unexpected end of text (Line 1, Column 3)\n\t   \n\t   ^"},
    };
    for (auto const& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_THROW_WHAT(zd::json::string_to_zorbaldata(c.text, c.text.begin() + static_cast<long>(c.skipped_before),
                                                         c.text.end() - static_cast<long>(c.skipped_after), factory),
                          fj::ParserException, c.message);
    }
}

} // namespace
