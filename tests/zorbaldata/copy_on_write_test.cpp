// Copies share elements until one of them is written; no write ever shows through another handle.
#include <foundation/zorbaldata.hpp>

#include <gtest/gtest.h>

#include <functional>
#include <string>

using namespace foundation::zorbaldata;

namespace {

ArrayFactory const factory;

} // namespace

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
    ClassInfo const cls = factory.createClassInfo(ZorbalClassIdentifier("pkg.Cls"), {ZorbalPropertyIdentifier("p")});
    struct Case {
        std::string name;
        std::function<Array()> make;
        std::function<Array(Array)> write;
    };
    using Text = zorbal::data::optional<std::u16string>;
    std::vector<Case> const cases{
        {"cell", [] { return factory.createArray(ArrayType::CELL, {1, 2}); },
         [](TypedArray<Array> a) { a[0] = factory.createScalar(1.0); return a; }},
        {"string", [] { return factory.createArray(ArrayType::STRING, {1, 2}); },
         [](TypedArray<Text> a) { a[0] = std::u16string(u"x"); return a; }},
        {"struct", [] { return factory.createStructArray({1, 2}, {"f"}); },
         [](StructArray a) { a[0]["f"] = factory.createScalar(1.0); return a; }},
        {"value object", [&] { return factory.createValueObjectArray({1, 2}, cls); },
         [](ValueObjectArray a) { a[0]["p"] = factory.createScalar(1.0); return a; }},
        {"handle", [] { return factory.createArray(ArrayType::HANDLE_OBJECT_REF, {1, 2}); },
         [](TypedArray<HandleObjectRef> a) { a[0] = factory.createHandleObjectRef(KVXID(), 1); return a; }},
        {"enumeration", [] { return factory.createEnumArray({1, 2}, "pkg.Color"); },
         [](EnumArray a) { a[0] = "red"; return a; }},
        {"array property", [&] { return factory.createValueObjectArray({1, 1}, cls); },
         [](ValueObjectArray a) { a.addArrayProperty(ZorbalPropertyIdentifier("meta"), Array(), true); return a; }},
    };
    for (auto const& kind : cases) {
        Array const pristine = kind.make();
        Array const written = kind.write(pristine);
        EXPECT_EQ(pristine, kind.make()) << kind.name;
        EXPECT_NE(written, pristine) << kind.name;
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
