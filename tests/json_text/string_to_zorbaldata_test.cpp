// The entry from JSON text to an array: syntax errors and text left over refused, conversion failures
// passed on. Deep nesting is among the hostile inputs.
#include <foundation/zorbaldata/json/string_to_zorbaldata.hpp>

#include "expect_throw.hpp"

#include <foundation/json/parser_exception.hpp>
#include <foundation/zorbaldata.hpp>
#include <foundation/zorbaldata/json/convert_error.hpp>
#include <yx/i18n/cvt_exception.hpp>

#include <string>
#include <vector>

namespace {

namespace fj = foundation::json;
namespace zd = foundation::zorbaldata;

// A caller that skips bytes of its own around the value, as the command-line tool does, gets the
// positions of the whole text back.
TEST(StringToZorbaldata, RefusesTextThatIsNotExactlyOneValue)
{
    static const struct {
        std::string text;
        long skipped_before, skipped_after;
        std::string message;
    } cases[] = {
        {"", 0, 0, "JSON ParserException (E0019): Unexpected end of text (Line 1, Column 0)\n\t\n\t^"},
        {" 1", 0, 0, "JSON ParserException (E0008): Expected a string (opening quote) (Line 1, Column 0)\n\t 1\n\t^"},
        {"1 ", 0, 0, "JSON ParserException (E0000): Parse incomplete (Line 1, Column 1)\n\t1 \n\t ^"},
        {"1\n", 0, 0, "JSON ParserException (E0000): Parse incomplete (Line 1, Column 1)\n\t1\n\t ^"},
        {"[][]", 0, 0, "JSON ParserException (E0000): Parse incomplete (Line 1, Column 2)\n\t[][]\n\t  ^"},
        {"{\"a\":[tr", 0, 0,
         "JSON ParserException (E0008): Expected a string (opening quote) (Line 1, Column 6)\n\t{\"a\":[tr\n\t      ^"},
        {"\n [1,\n x]\n", 2, 1,
         "JSON ParserException (E0008): Expected a string (opening quote) (Line 3, Column 1)\n\t x]\n\t ^"},
        {" 1 2 ", 1, 1, "JSON ParserException (E0000): Parse incomplete (Line 1, Column 2)\n\t 1 2 \n\t  ^"},
        {"   ", 3, 0, "JSON ParserException (E0019): Unexpected end of text (Line 1, Column 3)\n\t   \n\t   ^"},
    };
    zd::ArrayFactory factory;
    for (auto const& c : cases) {
        auto const first = c.text.begin() + c.skipped_before;
        auto const last = c.text.end() - c.skipped_after;
        if (c.skipped_before + c.skipped_after == 0) {
            EXPECT_THROW_WHAT(zd::json::string_to_zorbaldata(c.text, factory), fj::ParserException, c.message);
        }
        EXPECT_THROW_WHAT(zd::json::string_to_zorbaldata(c.text, first, last, factory), fj::ParserException, c.message);
    }
    std::string const good = "  [1,2]\n";
    zd::Array const array = zd::json::string_to_zorbaldata(good, good.begin() + 2, good.end() - 1, factory);
    EXPECT_EQ(array.getDimensions(), (std::vector<unsigned long>{2, 1}));
}

TEST(StringToZorbaldata, ConversionFailuresPassThrough)
{
    zd::ArrayFactory factory;
    EXPECT_THROW_WHAT(zd::json::string_to_zorbaldata("null", factory), zd::json::InvalidInputJSONValue,
                      "Input value is either foundation::json::Undefined or foundation::json::Null. "
                      "The value cannot be converted to ZORBAL Data Array.");
    EXPECT_THROW(zd::json::string_to_zorbaldata("\"\xC0\xAF\"", factory), yx::i18n::CvtInvalidCharacter);
}

} // namespace
