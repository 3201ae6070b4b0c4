// The forms that do not survive the way back unchanged: what comes back instead, or how the reader
// refuses what the writer made.
#include "expect_throw.hpp"
#include "roundtrip_support.hpp"

#include <frontend/detail/parse_error.hpp>

#include <limits>
#include <string>
#include <utility>

namespace {

using namespace zq::test::roundtrip;
using enum ToJsonMode;
using enum NanType;
using enum Path;
using ComplexDouble = std::complex<double>;
using ComplexSingle = std::complex<float>;
using foundation::zorbaljson::InvalidFloatingElem;
using foundation::zorbaljson::InvalidZQDataForSparse;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double inf = std::numeric_limits<double>::infinity();
constexpr float fnan = std::numeric_limits<float>::quiet_NaN();
constexpr float finf = std::numeric_limits<float>::infinity();

zd::Array complexNonFinite() { return numbers<ComplexDouble>({1, 3}, {{1, nan}, {inf, 2}, {-inf, nan}}); }
zd::Array complexSingleNonFinite() { return numbers<ComplexSingle>({2, 1}, {{0.5f, -finf}, {fnan, 1}}); }
zd::Array complexNonFiniteInCell() { return cell({1, 2}, {scalar(1), complexNonFinite()}); }
zd::Array singleNonFinite() { return numbers<float>({1, 3}, {fnan, finf, -finf}); }
zd::Array singles() { return numbers<float>({1, 2}, {0.1f, -3}); }
zd::Array noColors(Dims dims) { return enums(std::move(dims), "pkg.Color", {}); }
zd::Array noColorObjects(Dims dims)
{
    auto const color = factory.createClassInfo(zd::ZorbalClassIdentifier("pkg.Color"));
    return factory.createValueObjectArray(std::move(dims), color);
}
zd::Array emptyStruct() { return structs({0, 0}, {}); }
zd::Array structOfText(char16_t const* text) { return structs({1, 1}, {{"zqdata", {charRow(text)}}}); }
zd::Array nanText() { return structOfText(u"NaN"); }
// Fields that, written as a plain object, hold a whole large form: a 1-by-2 double holding 5 and 6.
zd::Array headerFields()
{
    return structs({1, 1}, {{"zqdata", {doubles({2, 1}, {5, 6})}}, {"zqsize", {doubles({2, 1}, {1, 2})}},
                               {"zqtype", {charRow(u"double")}}});
}
zd::Array fiveAndSix() { return doubles({1, 2}, {5, 6}); }

std::string invalidFloating(std::string const& type)
{
    return "Invalid value for type " + type + ". Expected a number or one of the following:"
        + R"("NaN", "Inf", "-Inf", {"zqdata":"NaN"}, {"zqdata":"Inf"}, {"zqdata":"-Inf"})";
}

std::string const doubleElement = invalidFloating("double");
std::string const singleElement = invalidFloating("single");
// A sparse tree fails on its first row number, named a double whatever the kind.
std::string const sparseTree = "Incompatible data for sparse. " + doubleElement;

// An array written under a setting and read back by a path: what comes back, or the text of what the
// reader throws (InvalidZQDataForSparse for sparseTree, else InvalidFloatingElem).
TEST(RoundTrip, WhatTheReaderMakesOfTheWrittenForm)
{
    struct {
        zd::Array array;
        Setting setting;
        Path path;
        zd::Array expected;
        std::string const* refusal = nullptr;
    } const differences[] = {
        // Dense complex data with non-finite parts come back only as special-float objects.
        {complexNonFinite(), {Large, Object}, Text, complexNonFinite()},
        {complexSingleNonFinite(), {Large, Object}, Text, complexSingleNonFinite()},
        {complexNonFiniteInCell(), {Small, Object}, Text, complexNonFiniteInCell()},
        // In a tree only the non-finite single elements, which are no floats there, can be read.
        {singleNonFinite(), {Large, String}, Tree, singleNonFinite()},
        {singleNonFinite(), {Small, Object}, Tree, singleNonFinite()},
        // An enumeration is told by a first element that is a string.
        {noColors({0, 0}), {Large, String}, Text, noColorObjects({0, 0})},
        {noColors({1, 0}), {Small, Object}, Tree, noColorObjects({1, 0})},
        // {} is the 0-by-0 struct without fields only in the writer's eyes.
        {emptyStruct(), {Large, String}, Text, emptyStruct()},
        {emptyStruct(), {Small, String}, Text, structs({1, 1}, {})},
        // A plain object whose only key zqdata holds a special-float word is that special float.
        {nanText(), {Large, String}, Text, nanText()}, {nanText(), {Small, String}, Text, scalar(nan)},
        {structOfText(u"Inf"), {Small, Object}, Text, scalar(inf)},
        {structOfText(u"-Inf"), {Small, String}, Tree, scalar(-inf)},
        // A plain object with the three header keys is a large form.
        {headerFields(), {Large, String}, Text, headerFields()},
        {headerFields(), {Small, String}, Text, fiveAndSix()},
        {cell({1, 1}, {headerFields()}), {Small, String}, Tree, cell({1, 1}, {fiveAndSix()})},
        // Dense complex data take no plain "NaN", "Inf" or "-Inf", which NanType String writes there; finite
        // single elements are floats in the tree and sparse row and column numbers unsigned integers, which
        // the readers do not take.
        {complexNonFinite(), {Large, String}, Text, {}, &doubleElement},
        {complexSingleNonFinite(), {Large, String}, Text, {}, &singleElement},
        {complexNonFiniteInCell(), {Small, String}, Text, {}, &doubleElement},
        // Found by the round-trip fuzz target: the special-float object read, written back as a plain word.
        {zq::test::read_both_ways(
             R"({"zqcomplex":true,"zqdata":[1,2,{"zqdata":"NaN"},-4],"zqsize":[1,2],"zqtype":"single"})"),
            {Large, String}, Text, {}, &singleElement},
        {singles(), {Large, String}, Tree, {}, &singleElement},
        {numbers<ComplexSingle>({1, 1}, {{1, 2}}), {Large, Object}, Tree, {}, &singleElement},
        {cell({1, 1}, {singles()}), {Small, String}, Tree, {}, &singleElement},
        {sparse<double>({3, 2}, {{0, 1, 7.0}, {2, 1, nan}}), {Large, String}, Tree, {}, &sparseTree},
        {sparse<bool>({3, 2}, {{0, 0, true}, {2, 1, true}}), {Large, Object}, Tree, {}, &sparseTree},
    };
    for (auto const& row : differences) {
        SCOPED_TRACE(describe(row.setting) + (row.path == Tree ? ", tree: " : ": ")
            + text_of(row.array, row.setting));
        auto const back = [&] { return written_and_read(row.array, row.setting, row.path); };
        if (row.refusal == &sparseTree)
            EXPECT_THROW_WHAT(back(), InvalidZQDataForSparse, sparseTree);
        else if (row.refusal)
            EXPECT_THROW_WHAT(back(), InvalidFloatingElem, *row.refusal);
        else
            expect_same(back(), row.expected, row.setting);
    }
}

} // namespace
