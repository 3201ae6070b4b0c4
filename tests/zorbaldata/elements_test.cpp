// Arrays whose elements are arrays, struct records, text or enumeration members, and copies that share
// elements until one of them is written: no write ever shows through another handle.
#include "expect_throw.hpp"

#include <foundation/zorbaldata.hpp>

#include <gtest/gtest.h>

#include <functional>
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

TEST(CellArray, ElementsStartEmptyShareWhatIsStoredAndCompareDeeply)
{
    TypedArray<Array> cells = factory.createArray<Array>({1, 2});
    EXPECT_EQ(std::as_const(cells)[1], Array());
    EXPECT_THROW_WHAT(cells[2], EIndexOutOfRange, "Index 2 is outside an array of 2 elements.");
    Array const text = factory.createCharArray(u"abc");
    cells[1] = text;
    Array const stored = std::as_const(cells)[1];
    EXPECT_EQ(stored, text);
    EXPECT_EQ(&*getReadOnlyElements<char16_t>(stored).begin(), &*getReadOnlyElements<char16_t>(text).begin());
    // Equality is deep.
    double const nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(nestedCells(2, 1), nestedCells(2, 1));
    EXPECT_NE(nestedCells(2, 1), nestedCells(2, 2));
    EXPECT_NE(nestedCells(2, 1), nestedCells(1, 1));
    EXPECT_EQ(nestedCells(2, nan), nestedCells(2, -nan));
    EXPECT_EQ(factory.createScalar(0.0), factory.createScalar(-0.0));
    EXPECT_NE(factory.createScalar(1.0), factory.createScalar(1.0f));
    EXPECT_NE(factory.createArray<double>({1, 2}), factory.createArray<double>({2, 1}));
    EXPECT_NE(Array(), factory.createArray(ArrayType::DOUBLE, {0, 3}));
}

// Comparing and dropping arrays nested far deeper than a stack could recurse through; arrays that
// outlive the thread's own bookkeeping, such as thread_local ones, are freed at exit after it (the
// sanitizers see any use of bookkeeping that is gone).
TEST(CellArray, ComparesAndFreesDeeplyNestedCellsAndCellsAtThreadExit)
{
    Array nested = nestedCells(300000, 1.0);
    EXPECT_TRUE(nested == nestedCells(300000, 1.0));
    EXPECT_FALSE(nested == nestedCells(300000, 2.0));
    std::thread([] {
        thread_local Array const held = nestedCells(3, 1.0);
        EXPECT_EQ(held.getType(), ArrayType::CELL);
        Array dropped = nestedCells(3, 2.0);
        dropped = Array();
    }).join();
}

// Fields start empty, a struct kind has no fields, and field order does not matter for equality.
TEST(StructArray, FieldsStartEmptyAndTheirOrderDoesNotMatter)
{
    EXPECT_EQ(factory.createStructArray({2, 1}, {"zeta", "alpha"})[1]["alpha"], Array());
    StructArray const noFields = factory.createStructArray({2, 1}, {});
    EXPECT_EQ(noFields.getNumberOfFields(), 0u);
    EXPECT_EQ(factory.createArray(ArrayType::STRUCT, {2, 1}), noFields);
    StructArray ab = factory.createStructArray({1, 1}, {"a", "b"});
    StructArray ba = factory.createStructArray({1, 1}, {"b", "a"});
    ab[0]["a"] = factory.createScalar(1.0);
    ba[0]["a"] = factory.createScalar(1.0);
    EXPECT_EQ(ab, ba);
    ba[0]["b"] = factory.createScalar(1.0);
    EXPECT_NE(ab, ba);
    EXPECT_NE(ab, factory.createStructArray({1, 1}, {"a", "c"}));
}

TEST(StructArray, IllegalAndUnknownFieldNamesAreRefused)
{
    EXPECT_NO_THROW(factory.createStructArray({1, 1}, {std::string(2049, 'a'), "a_1", "Z9"}));
    for (std::string const& name : {std::string(), std::string("1a"), std::string("_a"), std::string("a b"),
             std::string("a-b"), std::string("\xc3\xa9t\xc3\xa9"), std::string(2050, 'a')})
        EXPECT_THROW_WHAT(factory.createStructArray({1, 1}, {"ok", name}), EIllegalStructFieldName,
            "\"" + name + "\" is not a legal field name: a field name begins with an ASCII letter, holds "
            "only ASCII letters, digits and underscores, and has at most 2049 of them.");
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

// Text is one row and no text is 0-by-0; a missing string is neither empty nor readable.
TEST(StringArray, TextIsOneRowAndMissingIsNeitherEmptyNorReadable)
{
    CharArray const abc = factory.createCharArray(u"abc");
    EXPECT_EQ(abc.getDimensions(), (std::vector<unsigned long>{1, 3}));
    EXPECT_EQ(abc.toUTF16(), u"abc");
    EXPECT_EQ(factory.createCharArray(u"").getDimensions(), (std::vector<unsigned long>{0, 0}));
    TypedArray<OptionalText> strings = factory.createArray<OptionalText>({1, 2});
    TypedArray<OptionalText> const none = strings;
    EXPECT_THROW_WHAT(
        std::u16string(std::as_const(strings)[0]), EMissingValue, "The string element is missing.");
    strings[1] = OptionalText(u"");
    EXPECT_NE(strings, none);
    TypedArray<OptionalText> emptied = none;
    emptied[1] = OptionalText(u"");
    EXPECT_EQ(strings, emptied);
}

// Strings written in order into an array of eight or more are kept together with the array's others;
// every copy must still see them after the buffer and the array that made them are gone, whichever copy
// writes next.
TEST(StringArray, StringsOutliveTheirBufferAndTheArrayThatMadeThem)
{
    std::u16string buffer(200000, u'h');
    auto original = std::make_unique<TypedArray<OptionalText>>(factory.createArray<OptionalText>({1, 8}));
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

TEST(CopyOnWrite, OnlyASharedArrayIsCopiedBeforeAWrite)
{
    TypedArray<double> original = factory.createArray<double>({1, 3}, {1, 2, 3});
    double* const first = &*getWritableElements<double>(original).begin();
    {
        Array const reader = original;
        EXPECT_EQ(&*getReadOnlyElements<double>(reader).begin(), first);
    }
    EXPECT_EQ(&*getWritableElements<double>(original).begin(), first);
    Array const copy = original;
    getWritableElements<double>(original).begin()[0] = 10;
    TypedArray<double> view = copy;
    *view.begin() = 5;
    EXPECT_EQ(getReadOnlyElements<double>(copy).begin()[0], 1);
    EXPECT_EQ(original[0], 10);
    EXPECT_EQ(std::as_const(view)[0], 5);
}

// For each kind whose elements are reached through references: write element 0 of one handle and
// check that a copy made before still reads as the original.
TEST(CopyOnWrite, EveryKindOfElementIsCopiedBeforeAWrite)
{
    ClassInfo const cls
        = factory.createClassInfo(ZorbalClassIdentifier("pkg.Cls"), {ZorbalPropertyIdentifier("p")});
    Array const one = factory.createScalar(1.0);
    HandleObjectRef const handle = factory.createHandleObjectRef(KVXID(), 1);
    ZorbalPropertyIdentifier const meta("meta");
    std::pair<std::function<Array()>, std::function<Array(Array)>> const cases[] = {
        {[] { return factory.createArray(ArrayType::CELL, {1, 2}); },
            [&](TypedArray<Array> a) { a[0] = one; return a; }},
        {[] { return factory.createArray(ArrayType::STRING, {1, 2}); },
            [](TypedArray<OptionalText> a) { a[0] = std::u16string(u"x"); return a; }},
        {[] { return factory.createStructArray({1, 2}, {"f"}); },
            [&](StructArray a) { a[0]["f"] = one; return a; }},
        {[&] { return factory.createValueObjectArray({1, 2}, cls); },
            [&](ValueObjectArray a) { a[0]["p"] = one; return a; }},
        {[] { return factory.createArray(ArrayType::HANDLE_OBJECT_REF, {1, 2}); },
            [&](TypedArray<HandleObjectRef> a) { a[0] = handle; return a; }},
        {[] { return factory.createEnumArray({1, 2}, "pkg.Color"); },
            [](EnumArray a) { a[0] = "red"; return a; }},
        {[&] { return factory.createValueObjectArray({1, 1}, cls); },
            [&](ValueObjectArray a) { a.addArrayProperty(meta, Array(), true); return a; }},
    };
    for (auto const& [make, write] : cases) {
        Array const pristine = make();
        Array const written = write(pristine);
        EXPECT_EQ(pristine, make()) << getTypeName(pristine.getType());
        EXPECT_NE(written, pristine) << getTypeName(pristine.getType());
    }
}

TEST(CopyOnWrite, ObjectsAndStructElementsTakenOutAreIndependent)
{
    ClassInfo const cls = factory.createClassInfo(ZorbalClassIdentifier("pkg.Cls"));
    ValueObject original = factory.createValueObject(cls);
    original.addProperty(ZorbalPropertyIdentifier("p"), factory.createScalar(1.0));
    ValueObject copy = original;
    copy["p"] = factory.createScalar(2.0);
    copy.addProperty(ZorbalPropertyIdentifier("q"), Array());
    EXPECT_EQ(std::as_const(original)["p"], factory.createScalar(1.0));
    EXPECT_EQ(original.getNumberOfProperties(), 1u);
    EXPECT_EQ(std::as_const(copy)["p"], factory.createScalar(2.0));

    ValueObject const stored = factory.createValueObject(cls);
    ValueObjectArray objects = factory.createValueObjectArray({1, 1}, cls);
    object_set_value_x(objects[0].get(), stored.get());
    standalone::detail::addProperty(objects[0], ZorbalPropertyIdentifier("p"), factory.createScalar(1.0));
    EXPECT_EQ(stored.getNumberOfProperties(), 0u);
    EXPECT_EQ(ValueObject(std::as_const(objects)[0]).getNumberOfProperties(), 1u);

    StructArray structs = factory.createStructArray({1, 1}, {"f"});
    structs[0]["f"] = factory.createScalar(1.0);
    StructElement const before = detail::getValue<StructElement>(std::as_const(structs)[0]);
    structs[0]["f"] = factory.createScalar(2.0);
    EXPECT_EQ(before["f"], factory.createScalar(1.0));
    EXPECT_EQ(std::as_const(structs)[0]["f"], factory.createScalar(2.0));
}
