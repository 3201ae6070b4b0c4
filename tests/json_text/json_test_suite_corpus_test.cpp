// A public corpus of parser tests, read through string_to_zorbaldata: y_ files must parse, n_ files
// must fail, i_ files may do either; our grammar departs from standard JSON on the files listed here.
#include "reading_paths.hpp"

#include <foundation/zorbaldata/json/string_to_zorbaldata.hpp>

#include <foundation/json/parser_exception.hpp>
#include <foundation/zorbaldata.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace {

namespace fj = foundation::json;
namespace fs = std::filesystem;
using enum fj::ParseResult;

// Standard JSON refuses these; our grammar reads them.
constexpr std::string_view accepted[] = {
    // Digits may follow a leading zero.
    "n_number_-01.json", "n_number_neg_int_starting_with_zero.json",
    "n_number_with_leading_zero.json",
    // A string takes every byte but the quote and the backslash, control bytes included.
    "n_string_unescaped_ctrl_char.json", "n_string_unescaped_newline.json",
    "n_string_unescaped_tab.json",
    // Form feed and vertical tab are white space.
    "n_structure_whitespace_formfeed.json",
};

struct Refusal { std::string_view file; fj::ParseResult code; unsigned long offset; };

// Our grammar refuses these y_ and i_ files, with this code at this offset. The i_ files not listed
// parse: lone low surrogates, a high surrogate followed by any \u escape, bytes that are no UTF-8
// (refused later, when a string is converted), numbers beyond double, 500 levels of nesting.
constexpr Refusal refused[] = {
    // The text is exactly one value: no white space before or after it.
    {"y_array_with_leading_space.json", ExpectedQuote, 0},
    {"y_structure_whitespace_array.json", ExpectedQuote, 0}, {"y_array_with_trailing_space.json", ParseOk, 3},
    {"y_number_double_close_to_zero.json", ParseOk, 83}, {"y_structure_trailing_newline.json", ParseOk, 5},
    // A high surrogate takes the next six bytes as its partner's escape, and here they are not there.
    {"i_string_1st_surrogate_but_2nd_missing.json", UnexpectedEnd, 2},
    {"i_string_incomplete_surrogate_and_escape_valid.json", UnexpectedEnd, 2},
    {"i_string_invalid_lonely_surrogate.json", UnexpectedEnd, 2},
    {"i_string_invalid_surrogate.json", UnexpectedEnd, 2},
    {"i_string_inverted_surrogates_U+1D11E.json", UnexpectedEnd, 8},
    // A byte-order mark or UTF-16 starts no value.
    {"i_string_UTF-16LE_with_BOM.json", ExpectedQuote, 0}, {"i_string_utf16BE_no_BOM.json", ExpectedQuote, 0},
    {"i_string_utf16LE_no_BOM.json", ExpectedQuote, 1},
    {"i_structure_UTF-8_BOM_empty_object.json", ExpectedQuote, 0},
};

TEST(JsonTestSuiteCorpus, EveryFileEndsAsOurGrammarSays)
{
    fs::path const folder = ZQ_JSON_TEST_SUITE_DIR;
    if (!fs::is_directory(folder))
        GTEST_SKIP() << folder << " is not there";
    std::size_t files = 0;
    for (fs::directory_entry const& entry : fs::directory_iterator(folder)) {
        std::string const name = entry.path().filename().string();
        SCOPED_TRACE(name);
        ++files;
        auto const refusal = std::ranges::find(refused, name, &Refusal::file);
        bool const must_fail = refusal != std::end(refused)
            || (name.starts_with("n_") && std::ranges::find(accepted, name) == std::end(accepted));
        std::ifstream in(entry.path(), std::ios::binary);
        try {
            zq::test::read_both_ways(std::string(std::istreambuf_iterator<char>(in), {}));
            EXPECT_FALSE(must_fail) << "converted";
        } catch (fj::ParserException const& e) {
            EXPECT_TRUE(must_fail) << e.what();
            if (refusal != std::end(refused)) {
                EXPECT_EQ(std::pair(e.code(), e.offset()), std::pair(refusal->code, refusal->offset));
            }
        } catch (std::exception const& e) {
            // Parsed, then refused by the conversion: null at the top, or what the notation refuses.
            EXPECT_FALSE(must_fail) << e.what();
        }
    }
    EXPECT_EQ(files, 318u);
}

} // namespace
