// Every benchmark document, at a small size, cut at a hundred points: each cut text is incomplete JSON,
// so reading it must end in the parser's exception, never an array, a crash or a failure of the
// conversion (some whole documents, the flat lists of strings and of records, are not arrays at all).
#include <foundation/json/parser_exception.hpp>
#include <foundation/zorbaldata.hpp>
#include <foundation/zorbaldata/json/string_to_zorbaldata.hpp>

#include <gtest/gtest.h>

#include <cstddef>
#include <exception>
#include <string>
#include <typeinfo>

#include "documents.hpp"

namespace zd = foundation::zorbaldata;

namespace {

struct Document {
    char const* name;
    std::string (*make)(std::size_t);
};

class TruncatedDocument : public testing::TestWithParam<Document> {};

TEST_P(TruncatedDocument, EveryCutEndsInAParserException)
{
    std::string const text = GetParam().make(40);
    zd::ArrayFactory factory;
    constexpr std::size_t cuts = 100;
    for (std::size_t i = 0; i < cuts; ++i) {
        std::size_t const length = text.size() * i / cuts;
        std::string const cut = text.substr(0, length);
        try {
            zd::json::string_to_zorbaldata(cut, factory);
            ADD_FAILURE() << "a text cut after " << length << " bytes reads: " << cut;
        } catch (foundation::json::ParserException const&) {
        } catch (std::exception const& e) {
            ADD_FAILURE() << "a text cut after " << length << " bytes throws " << typeid(e).name() << ": "
                          << e.what();
        }
    }
}

std::string rows(std::size_t count)
{
    return zq::bench::nested_rows(count / 8, 8);
}

static const Document documents[] = {
    {"LargeDouble", zq::bench::large_form_doubles}, {"LargeInt64", zq::bench::large_form_int64},
    {"RowsDouble", rows},                           {"Strings", zq::bench::short_strings},
    {"Records", zq::bench::records},                {"LargeString", zq::bench::large_form_strings},
    {"LargeStruct", zq::bench::large_form_struct},  {"LargeCell", zq::bench::large_form_cell},
};

INSTANTIATE_TEST_SUITE_P(Benchmark, TruncatedDocument, testing::ValuesIn(documents),
                         [](testing::TestParamInfo<Document> const& info) { return std::string(info.param.name); });

} // namespace
