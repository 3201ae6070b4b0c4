// Texts built to exhaust time or memory read through the public entry point: each ends in its array or
// its exception, with nothing left behind (the asan preset checks leaks), and the fuzzers' findings are
// kept here so they stay fixed. Every benchmark document, cut short anywhere, ends in the parser's
// exception.
#include <foundation/zorbaldata.hpp>
#include <foundation/zorbaldata/json/string_to_zorbaldata.hpp>

#include <gtest/gtest.h>

#include <cxxabi.h>

#include <cstdlib>
#include <typeinfo>

#include "documents.hpp"

namespace zd = foundation::zorbaldata;

namespace {

struct Case {
    char const* name;
    std::string (*text)();
    // shape() of the array, else "<exception class>: <what()>"; for a list of objects far beyond its size,
    // also the count's refusal (see the fuzzers' findings below).
    std::string outcome;
    bool or_count = false;
};

std::string shape(std::string const& dimensions, zd::ArrayType type)
{
    return dimensions + " of type " + std::to_string(static_cast<int>(type));
}

std::string outcome(std::string const& text)
{
    zd::ArrayFactory factory;
    try {
        zd::Array const array = zd::json::string_to_zorbaldata(text, factory);
        std::string dimensions;
        for (unsigned long extent : array.getDimensions())
            dimensions += (dimensions.empty() ? "" : "x") + std::to_string(extent);
        return shape(dimensions, array.getType());
    } catch (std::exception const& e) {
        int status = 0;
        std::unique_ptr<char, void (*)(void*)> const name(
            abi::__cxa_demangle(typeid(e).name(), nullptr, nullptr, &status), std::free);
        return (status == 0 ? name.get() : typeid(e).name()) + std::string(": ") + e.what();
    }
}

std::string repeat(std::string const& part, std::size_t times)
{
    std::string text;
    for (std::size_t i = 0; i < times; ++i)
        text += part;
    return text;
}

std::string form(std::string const& type, std::string const& size, std::string const& data)
{
    return R"({"zqtype":")" + type + R"(","zqsize":)" + size + R"(,"zqdata":)" + data + "}";
}

class HostileInput : public testing::TestWithParam<Case> { };

std::string const mismatch
    = R"(foundation::zorbaljson::MismatchedZQSize: Data size does not match "zqsize" specified.)";

TEST_P(HostileInput, EndsInItsArrayOrItsException)
{
    std::string const result = outcome(GetParam().text());
    if (!GetParam().or_count || result != mismatch) {
        EXPECT_EQ(result, GetParam().outcome);
    }
}

std::string const too_large = "foundation::zorbaldata::EArrayTooLarge: Cannot create an array of ";
std::string const beyond_count = " elements: its number of elements exceeds 18446744073709551615.";
std::string const too_deep = "foundation::json::ParserException: JSON ParserException (E0021): "
                             "Arrays and objects nested too deeply (Line 1, Column ";
std::string const caret = "\n\t" + std::string(80, ' ') + "^";
using enum zd::ArrayType;

static const Case cases[] = {
    {"String100MB", [] { return '"' + std::string(100UL << 20, 'a') + '"'; }, shape("1x104857600", CHAR)},
    {"ArraysMillionDeep", [] { return repeat("[", 1'000'000) + repeat("]", 1'000'000); },
        too_deep + "1000)\n\t" + std::string(160, '[') + caret},
    {"ObjectsMillionDeep", [] { return repeat(R"({"a":)", 1'000'000) + "1" + repeat("}", 1'000'000); },
        too_deep + "5000)\n\t" + repeat(R"({"a":)", 32) + caret},
    {"SizeOf2To64Elements", [] { return form("double", "[4294967296,4294967296]", "[1]"); },
        too_large + "4294967296x4294967296 double" + beyond_count},
    {"SizeOf2To63Bytes", [] { return form("double", "[1073741824,1073741824]", "[1]"); },
        too_large + "1073741824x1073741824 double elements: 1152921504606846976 elements of 8 bytes "
                    "exceed the largest possible allocation."},
    // The one-element list is counted against the size before any cell is made.
    {"Size16GiBOfCells", [] { return form("cell", "[1,2147483648]", "[1]"); }, mismatch},
    {"TenMillionBytes", [] { return form("uint8", "[1,10000000]", "[" + repeat("1,", 9'999'999) + "1]"); },
        shape("1x10000000", UINT8)},
    {"Number100000Digits", [] { return std::string(100'000, '7'); }, shape("1x1", DOUBLE)},
    // The array library refuses a field name this long and does not say which.
    {"Key10MB", [] { return R"({")" + std::string(10UL << 20, 'k') + R"(":1})"; },
        "foundation::zorbaljson::InvalidFieldName: Invalid field name \"\" specified."},
    // An empty heterogeneous list makes the array of its size with elements as the factory made them;
    // 72 bytes of text stand for 7.1 million objects.
    {"EmptyHeterogeneousList", [] { return form("zorbal.mixin.Heterogeneous", "[3555555,2]", "[]"); },
        shape("3555555x2", VALUE_OBJECT)},
    {"EmptyHeterogeneousListBeyondCounting",
        [] { return form("zorbal.mixin.Heterogeneous", "[4294967296,4294967296]", "[]"); },
        too_large + "4294967296x4294967296 value object" + beyond_count},
    // Fuzzers' findings: object lists with sizes far beyond their one or two objects. The objects are made
    // before the list is counted against the size, so the size is refused by the allocation where no
    // memory can hold it, or else, where memory is promised lazily, by the count; never by running out of
    // memory.
    {"TerabytesOfObjects",
        [] {
            return form("shop.Item", "[1,99999,0999999,0002]",
                R"([{"name":"pen","price":1.5},{"name":"ink","price":4}])");
        },
        too_large + "1x99999x999999x2 value object elements: allocating 1599982400016 bytes failed.", true},
    {"GigabytesOfObjects",
        [] {
            return form("shop.Item", "[2,2444,444444]",
                "[{\"\xEE" R"(ame":"pen","price":2.5},{"name":"","price":4}])");
        },
        too_large + "2x2444x444444 value object elements: allocating 17386649472 bytes failed.", true},
    {"GigabytesOfObjectsFromOneObject",
        [] { return form("Item", "[2,24,0040810055]", "[{\"\xEE" "am" + std::string(7, 0) + R"(ce":4}])"); },
        too_large + "2x24x40810055 value object elements: allocating 15671061120 bytes failed.", true},
};
std::string case_name(testing::TestParamInfo<Case> const& info) { return info.param.name; }
INSTANTIATE_TEST_SUITE_P(Texts, HostileInput, testing::ValuesIn(cases), case_name);

// Each cut text is incomplete JSON, so reading it must end in the parser's exception, never an array, a
// crash or a failure of the conversion (some whole documents, the flat lists of strings and of records,
// are not arrays at all).
TEST(TruncatedDocument, EveryCutEndsInAParserException)
{
    using namespace zq::bench;
    static const std::pair<char const*, std::string (*)(std::size_t)> documents[] = {
        {"LargeDouble", large_form_doubles}, {"LargeInt64", large_form_int64},
        {"RowsDouble", [](std::size_t count) { return nested_rows(count / 8, 8); }},
        {"Strings", short_strings}, {"Records", records}, {"LargeString", large_form_strings},
        {"LargeStruct", large_form_struct}, {"LargeCell", large_form_cell},
    };
    for (auto const& [name, make] : documents) {
        std::string const text = make(40);
        for (std::size_t i = 0; i < 100; ++i) {
            std::string const result = outcome(text.substr(0, text.size() * i / 100));
            EXPECT_TRUE(result.starts_with("foundation::json::ParserException: ")) << name << i << result;
        }
    }
}

} // namespace
