// Copies share elements until one of them is written; no write ever shows through another handle.
#include <foundation/zorbaldata.hpp>

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <memory>
#include <string>

using namespace foundation::zorbaldata;

namespace {

ArrayFactory const factory;

} // namespace

TEST(CopyOnWrite, WritingASharedArrayLeavesTheOtherHandleAlone)
{
    TypedArray<double> original = factory.createArray<double>({1, 3}, {1, 2, 3});
    Array const copy = original;
    getWritableElements<double>(original).begin()[0] = 10;
    EXPECT_EQ(getReadOnlyElements<double>(copy).begin()[0], 1);
    EXPECT_EQ(original[0], 10);
}

TEST(CopyOnWrite, WritingAnUnsharedArrayCopiesNothing)
{
    TypedArray<double> array = factory.createArray<double>({1, 3});
    double* const first = &*getWritableElements<double>(array).begin();
    EXPECT_EQ(&*getWritableElements<double>(array).begin(), first);
    {
        Array const reader = array;
        EXPECT_EQ(&*getReadOnlyElements<double>(reader).begin(), first);
    }
    EXPECT_EQ(&*getWritableElements<double>(array).begin(), first);
}

TEST(CopyOnWrite, NonConstBeginOfAViewWrites)
{
    Array const shared = factory.createArray<double>({1, 2}, {1, 2});
    TypedArray<double> view = shared;
    *view.begin() = 5;
    EXPECT_EQ(getReadOnlyElements<double>(shared).begin()[0], 1);
    EXPECT_EQ(std::as_const(view)[0], 5);
}

// One case for each kind whose elements are reached through references: make an array, then write
// element 0 of one handle and check that a copy made before still reads as the original.
struct KindCase {
    std::string name;
    std::function<Array()> make;
    std::function<void(Array&)> write;
};

TEST(CopyOnWrite, EveryKindOfElementIsCopiedBeforeAWrite)
{
    ClassInfo const cls = factory.createClassInfo(ZorbalClassIdentifier("pkg.Cls"), {ZorbalPropertyIdentifier("p")});
    std::vector<KindCase> const cases{
        {"cell", [] { return factory.createArray(ArrayType::CELL, {1, 2}); },
         [](Array& a) {
             TypedArray<Array> view(std::move(a));
             view[0] = factory.createScalar(1.0);
             a = view;
         }},
        {"string", [] { return factory.createArray(ArrayType::STRING, {1, 2}); },
         [](Array& a) {
             TypedArray<zorbal::data::optional<std::u16string>> view(std::move(a));
             view[0] = std::u16string(u"x");
             a = view;
         }},
        {"struct", [] { return factory.createStructArray({1, 2}, {"f"}); },
         [](Array& a) {
             StructArray view(std::move(a));
             view[0]["f"] = factory.createScalar(1.0);
             a = view;
         }},
        {"value object", [&] { return factory.createValueObjectArray({1, 2}, cls); },
         [](Array& a) {
             ValueObjectArray view(std::move(a));
             view[0]["p"] = factory.createScalar(1.0);
             a = view;
         }},
        {"handle", [] { return factory.createArray(ArrayType::HANDLE_OBJECT_REF, {1, 2}); },
         [](Array& a) {
             TypedArray<HandleObjectRef> view(std::move(a));
             view[0] = factory.createHandleObjectRef(KVXID(), 1);
             a = view;
         }},
        {"enumeration", [] { return factory.createEnumArray({1, 2}, "pkg.Color"); },
         [](Array& a) {
             EnumArray view(std::move(a));
             view[0] = "red";
             a = view;
         }},
        {"value object array property", [&] { return factory.createValueObjectArray({1, 1}, cls); },
         [](Array& a) {
             ValueObjectArray view(std::move(a));
             view.addArrayProperty(ZorbalPropertyIdentifier("meta"), Array(), true);
             a = view;
         }},
    };
    for (auto const& kind : cases) {
        Array const pristine = kind.make();
        Array written = pristine;
        kind.write(written);
        EXPECT_EQ(pristine, kind.make()) << kind.name;
        EXPECT_NE(written, pristine) << kind.name;
    }
}

TEST(CopyOnWrite, ValueObjectCopiesAreIndependent)
{
    ValueObject original = factory.createValueObject(factory.createClassInfo(ZorbalClassIdentifier("pkg.Cls")));
    original.addProperty(ZorbalPropertyIdentifier("p"), factory.createScalar(1.0));
    ValueObject copy = original;
    copy["p"] = factory.createScalar(2.0);
    copy.addProperty(ZorbalPropertyIdentifier("q"), Array());
    EXPECT_EQ(std::as_const(original)["p"], factory.createScalar(1.0));
    EXPECT_EQ(original.getNumberOfProperties(), 1u);
    EXPECT_EQ(std::as_const(copy)["p"], factory.createScalar(2.0));
}

TEST(CopyOnWrite, StoredObjectAndElementAreIndependent)
{
    ClassInfo const cls = factory.createClassInfo(ZorbalClassIdentifier("pkg.Cls"));
    ValueObject const object = factory.createValueObject(cls);
    ValueObjectArray array = factory.createValueObjectArray({1, 1}, cls);
    object_set_value_x(array[0].get(), object.get());
    standalone::detail::addProperty(array[0], ZorbalPropertyIdentifier("p"), factory.createScalar(1.0));
    EXPECT_EQ(object.getNumberOfProperties(), 0u);
    EXPECT_EQ(ValueObject(std::as_const(array)[0]).getNumberOfProperties(), 1u);
}

TEST(CopyOnWrite, ReadStructElementKeepsItsValues)
{
    StructArray array = factory.createStructArray({1, 1}, {"f"});
    array[0]["f"] = factory.createScalar(1.0);
    StructElement const before = detail::getValue<StructElement>(std::as_const(array)[0]);
    array[0]["f"] = factory.createScalar(2.0);
    EXPECT_EQ(before["f"], factory.createScalar(1.0));
    EXPECT_EQ(std::as_const(array)[0]["f"], factory.createScalar(2.0));
}

// An array made on a buffer holds it as its own elements: no copy, its deleter called once, and a
// copy-on-write copy of its own for a writer of a shared array.
TEST(CopyOnWrite, ArrayTakesOverABuffer)
{
    static int freed = 0;
    auto* const values = static_cast<double*>(std::malloc(3 * sizeof(double)));
    values[0] = 1;
    values[1] = 2;
    values[2] = 3;
    {
        Array array = factory.createArrayFromBuffer(
            ArrayType::DOUBLE, {3, 1}, std::unique_ptr<void, void (*)(void*)>(values, [](void* block) {
                ++freed;
                std::free(block);
            }));
        EXPECT_EQ(&*getReadOnlyElements<double>(array).begin(), values);
        Array const copy = array;
        getWritableElements<double>(array).begin()[0] = 7;
        EXPECT_EQ(getReadOnlyElements<double>(copy).begin()[0], 1);
        EXPECT_EQ(freed, 0);
    }
    EXPECT_EQ(freed, 1);
}

TEST(CopyOnWrite, ArrayOnABufferRefusesWhatCreateArrayRefuses)
{
    using Buffer = std::unique_ptr<void, void (*)(void*)>;
    EXPECT_THROW(factory.createArrayFromBuffer(ArrayType::CELL, {1, 1}, Buffer(nullptr, std::free)), ETypeMismatch);
    EXPECT_THROW(factory.createArrayFromBuffer(ArrayType::DOUBLE, {2, 2}, Buffer(nullptr, std::free)), EInvalidArgument);
    EXPECT_THROW(factory.createArrayFromBuffer(ArrayType::DOUBLE, {1UL << 40, 1UL << 40}, Buffer(std::malloc(8), std::free)),
                 EArrayTooLarge);
}
