// Cell arrays: every entry read as a document of its own, and the count judged after the loop.
#include "reader_support.hpp"

#include "log_capture.hpp"

#include <frontend/detail/parse_error.hpp>

#include <string>

namespace {

using namespace zq::test;
namespace zj = foundation::zorbaljson;
using zd::ArrayType;

zd::Array element(zd::Array const& cell, unsigned long index)
{
    return zd::TypedArray<zd::Array>(cell)[index];
}

TEST(CellReader, EntriesAreWholeDocuments)
{
    zd::Array const cell = read(
        R"({"zqtype":"cell","zqsize":[2,2],"zqdata":[1,"ab",[true,false],)"
        R"({"zqtype":"cell","zqsize":[1,1],"zqdata":[{"zqtype":"int8","zqsize":[1,1],"zqdata":[3]}]}]})");
    ASSERT_EQ(cell.getType(), ArrayType::CELL);
    EXPECT_EQ(cell.getDimensions(), (Dims { 2, 2 }));
    EXPECT_EQ(elements_as<double>(element(cell, 0)), (std::vector<double> { 1 }));
    EXPECT_EQ(elements_as<char16_t>(element(cell, 1)), (std::vector<double> { 'a', 'b' }));
    EXPECT_EQ(element(cell, 2).getType(), ArrayType::LOGICAL);
    EXPECT_EQ(element(cell, 2).getDimensions(), (Dims { 2, 1 }));
    zd::Array const inner = element(cell, 3);
    ASSERT_EQ(inner.getType(), ArrayType::CELL);
    EXPECT_EQ(elements_as<signed char>(element(inner, 0)), (std::vector<double> { 3 }));
}

TEST(CellReader, EmptyListMakesAnEmptyCellOfTheSize)
{
    for (Dims const& dims : { Dims { 0, 0 }, Dims { 0, 5 }, Dims { 3, 0, 2 } }) {
        fj::Array size;
        for (unsigned long extent : dims)
            size.emplace_back(static_cast<double>(extent));
        zd::Array const cell = read_tree(fj::Value(fj::Object { { "zqtype", fj::Value("cell") },
            { "zqsize", fj::Value(size) }, { "zqdata", fj::Value(fj::Array {}) } }));
        EXPECT_EQ(cell.getType(), ArrayType::CELL);
        EXPECT_EQ(cell.getDimensions(), dims);
    }
}

class CellReaderFailure : public ::testing::TestWithParam<FailureCase> { };

TEST_P(CellReaderFailure, FailsWithTheFirstFault)
{
    GetParam().expect(GetParam().json, GetParam().text);
}

// An entry's failure comes through unchanged and before the count, which is judged last.
static FailureCase const failures[] = {
    { "SurplusNeverConverted", R"({"zqtype":"cell","zqsize":[2,2],"zqdata":[1,2,3,4,null]})",
        fails_with<zj::MismatchedZQSize>, mismatched_size },
    { "TooFew", R"({"zqtype":"cell","zqsize":[1,3],"zqdata":[1,2]})", fails_with<zj::MismatchedZQSize>,
        mismatched_size },
    { "EntryBeforeCount",
        R"({"zqtype":"cell","zqsize":[2,2],"zqdata":[1,{"zqtype":"x","zqsize":[1,1],"zqdata":5},3]})",
        fails_with<zj::InvalidPropertyType>, R"("zqdata" must be a JSON array)" },
    { "NullEntry", R"({"zqtype":"cell","zqsize":[1,1],"zqdata":[null]})", fails_with<zj::NullNotSupported>,
        "JSON null not supported" },
    { "ScalarData", R"({"zqtype":"cell","zqsize":[1,1],"zqdata":1})", fails_with<zj::InvalidZQDataType>,
        R"(""cell arrays must be a JSON array)" },
};
INSTANTIATE_TEST_SUITE_P(Failures, CellReaderFailure, ::testing::ValuesIn(failures), row_name<FailureCase>);

// The cell reader adds no line of its own to the nested reader's.
TEST(CellReader, LogsOnlyWhatTheEntryLogs)
{
    LogCapture log;
    EXPECT_THROW_WHAT(
        read(R"({"zqtype":"cell","zqsize":[1,1],"zqdata":[{"zqtype":"single","zqsize":[1,1],"zqdata":{}}]})"),
        zj::InvalidZQDataType, R"(""single arrays must be a JSON array)");
    EXPECT_EQ(log.lines(),
        std::vector<std::string> {
            "Caught std::runtime_error while casting data: invalid conversion: JSON object "
            "to JSON array" });
}

} // namespace
