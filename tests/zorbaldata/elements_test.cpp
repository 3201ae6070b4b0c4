// Arrays whose elements are arrays, struct records, text or enumeration members.
#include "expect_throw.hpp"

#include <foundation/zorbaldata.hpp>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <string>
#include <thread>
#include <vector>

using namespace foundation::zorbaldata;

namespace {

ArrayFactory const factory;
using OptionalText = zorbal::data::optional<std::u16string>;

// A scalar inside levels cells, each within the next.
Array nestedCells(int levels, double inner)
{
    Array nested = factory.createScalar(inner);
    for (int level = 0; level < levels; ++level) {
        TypedArray<Array> outer = factory.createArray<Array>({1, 1});
        outer[0] = std::move(nested);
        nested = std::move(outer);
    }
    return nested;
}

} // namespace

TEST(CellArray, ElementsStartEmptyAndShareWhatIsStored)
{
    TypedArray<Array> cells = factory.createArray<Array>({1, 2});
    EXPECT_EQ(std::as_const(cells)[1], Array());
    EXPECT_THROW_WHAT(cells[2], EIndexOutOfRange, "Index 2 is outside an array of 2 elements.");
    Array const text = factory.createCharArray(u"abc");
    cells[1] = text;
    Array const stored = std::as_const(cells)[1];
    EXPECT_EQ(stored, text);
    EXPECT_EQ(&*getReadOnlyElements<char16_t>(stored).begin(), &*getReadOnlyElements<char16_t>(text).begin());
}

TEST(CellArray, EqualityIsDeep)
{
    double const nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(nestedCells(2, 1), nestedCells(2, 1));
    EXPECT_NE(nestedCells(2, 1), nestedCells(2, 2));
    EXPECT_NE(nestedCells(2, 1), nestedCells(1, 1));
    EXPECT_EQ(nestedCells(2, nan), nestedCells(2, -nan));
    EXPECT_EQ(factory.createScalar(0.0), factory.createScalar(-0.0));
    EXPECT_NE(factory.createScalar(1.0), factory.createScalar(1.0f));
    EXPECT_NE(factory.createArray<double>({1, 2}), factory.createArray<double>({2, 1}));
}

// Comparing and dropping arrays nested far deeper than a stack could recurse through.
TEST(CellArray, ComparesAndFreesDeeplyNestedCells)
{
    Array nested = nestedCells(300000, 1.0);
    EXPECT_TRUE(nested == nestedCells(300000, 1.0));
    EXPECT_FALSE(nested == nestedCells(300000, 2.0));
}

// Arrays that outlive the thread's own bookkeeping, such as thread_local ones, are freed at exit
// after it; the sanitizers see any use of bookkeeping that is gone.
TEST(CellArray, FreesArraysAtThreadExit)
{
    std::thread([] {
        thread_local Array const held = nestedCells(3, 1.0);
        EXPECT_EQ(held.getType(), ArrayType::CELL);
        Array dropped = nestedCells(3, 2.0);
        dropped = Array();
    }).join();
}

TEST(StructArray, FieldsStartEmptyAndAStructKindHasNoFields)
{
    StructArray const array = factory.createStructArray({2, 1}, {"zeta", "alpha"});
    EXPECT_EQ(array[1]["alpha"], Array());
    StructArray const noFields = factory.createStructArray({2, 1}, {});
    EXPECT_EQ(noFields.getNumberOfFields(), 0u);
    EXPECT_EQ(factory.createArray(ArrayType::STRUCT, {2, 1}), noFields);
}

TEST(StructArray, IllegalAndUnknownFieldNamesAreRefused)
{
    EXPECT_NO_THROW(factory.createStructArray({1, 1}, {std::string(2049, 'a'), "a_1", "Z9"}));
    for (std::string const& name : {std::string(), std::string("1a"), std::string("_a"), std::string("a b"),
                                    std::string("a-b"), std::string("\xc3\xa9t\xc3\xa9"), std::string(2050, 'a')})
        EXPECT_THROW_WHAT(factory.createStructArray({1, 1}, {"ok", name}), EIllegalStructFieldName,
                          "\"" + name + "\" is not a legal field name: a field name begins with an ASCII letter, "
                          "holds only ASCII letters, digits and underscores, and has at most 2049 of them.");
    EXPECT_THROW_WHAT(factory.createStructArray({1, 1}, {"a", "b", "a"}), EIllegalStructFieldName,
                      "The field name \"a\" is given twice.");
    try {
        factory.createStructArray({0, 0}, {"1a"});
        ADD_FAILURE() << "an illegal name passed";
    } catch (EIllegalStructFieldName const& e) {
        EXPECT_EQ(e.getFieldName(), "1a");
        EXPECT_EQ(e.code(), 5);
    }
    StructArray array = factory.createStructArray({1, 1}, {"a"});
    std::string const text = "The struct array has no field called \"b\".";
    EXPECT_THROW_WHAT(array[0]["b"], EIllegalStructFieldName, text);
    EXPECT_THROW_WHAT(std::as_const(array)[0]["b"], EIllegalStructFieldName, text);
}

TEST(StructArray, FieldOrderDoesNotMatterForEquality)
{
    StructArray ab = factory.createStructArray({1, 1}, {"a", "b"});
    StructArray ba = factory.createStructArray({1, 1}, {"b", "a"});
    ab[0]["a"] = factory.createScalar(1.0);
    ba[0]["a"] = factory.createScalar(1.0);
    EXPECT_EQ(ab, ba);
    ba[0]["b"] = factory.createScalar(1.0);
    EXPECT_NE(ab, ba);
    EXPECT_NE(ab, factory.createStructArray({1, 1}, {"a", "c"}));
}

TEST(CharArray, TextIsOneRowAndNoTextIsZeroByZero)
{
    CharArray const abc = factory.createCharArray(u"abc");
    EXPECT_EQ(abc.getDimensions(), (std::vector<unsigned long>{1, 3}));
    EXPECT_EQ(abc.toUTF16(), u"abc");
    EXPECT_EQ(factory.createCharArray(u"").getDimensions(), (std::vector<unsigned long>{0, 0}));
}

TEST(StringArray, MissingIsNeitherEmptyNorReadable)
{
    TypedArray<OptionalText> strings = factory.createArray<OptionalText>({1, 2});
    TypedArray<OptionalText> const none = strings;
    EXPECT_THROW_WHAT(std::u16string(std::as_const(strings)[0]), EMissingValue, "The string element is missing.");
    strings[1] = OptionalText(u"");
    EXPECT_NE(strings, none);
    TypedArray<OptionalText> emptied = none;
    emptied[1] = OptionalText(u"");
    EXPECT_EQ(strings, emptied);
}

// Strings written from a view are kept together with the array's others; every copy must still see them
// after the buffer and the array that made them are gone, whichever copy writes next.
TEST(StringArray, StringsOutliveTheirBufferAndTheArrayThatMadeThem)
{
    std::u16string buffer(200000, u'h');
    auto original = std::make_unique<TypedArray<OptionalText>>(factory.createArray<OptionalText>({1, 4}));
    auto it = getWritableElements<OptionalText>(*original).begin();
    std::u16string_view const texts[] = {u"a\u00e9", buffer, u"z"};
    for (std::u16string_view text : texts) {
        it.getRef().setText(text);
        it.increment();
    }
    TypedArray<OptionalText> copy = *original;
    (*original)[3] = OptionalText(u"only in the original");
    TypedArray<OptionalText> const second = copy;
    original.reset();
    buffer.assign(200000, u'c');
    copy[0] = OptionalText(u"overwritten");
    copy[1] = OptionalText();
    EXPECT_EQ(second[0].view(), u"a\u00e9");
    EXPECT_EQ(second[1].view(), std::u16string(200000, u'h'));
    EXPECT_EQ(second[2].view(), u"z");
    EXPECT_FALSE(second[3].has_value());
    EXPECT_EQ(copy[0].view(), u"overwritten");
    EXPECT_FALSE(copy[1].has_value());
}

TEST(EnumArray, EqualityComparesClassAndMembers)
{
    EnumArray a = factory.createEnumArray({1, 2}, "pkg.Color");
    EnumArray b = factory.createEnumArray({1, 2}, "pkg.Color");
    EXPECT_EQ(a.getClassName(), "pkg.Color");
    a[0] = "red";
    b[0] = "red";
    EXPECT_EQ(a, b);
    b[1] = "red";
    EXPECT_NE(a, b);
    EXPECT_NE(factory.createEnumArray({1, 2}, "pkg.Color"), factory.createEnumArray({1, 2}, "pkg.Shade"));
}
