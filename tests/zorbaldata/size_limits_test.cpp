// Arrays too large to count or to hold are refused before anything is allocated, and a large array
// costs nothing until its elements are written.
#include "expect_throw.hpp"

#include <foundation/zorbaldata.hpp>

#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <string>
#include <unistd.h>

using namespace foundation::zorbaldata;

// Under AddressSanitizer a failed allocation aborts the process by default; the library's refusal of
// an allocation that fails is what is tested here, so the allocator must return null instead.
extern "C" __attribute__((visibility("default"), used)) char const* __asan_default_options()
{
    return "allocator_may_return_null=1";
}

namespace {

ArrayFactory const factory;
unsigned long const big = 4294967296UL;

/// The memory the process holds, in bytes.
long residentBytes()
{
    std::ifstream statm("/proc/self/statm");
    long size = 0;
    long resident = 0;
    statm >> size >> resident;
    return resident * sysconf(_SC_PAGESIZE);
}

} // namespace

TEST(SizeLimits, OverflowingElementCountIsRefused)
{
    struct Case {
        std::function<Array()> make;
        std::string text;
    };
    std::string const exceeds = ": its number of elements exceeds 18446744073709551615.";
    std::vector<Case> const cases{
        {[] { return factory.createArray(ArrayType::DOUBLE, {big, big}); },
         "Cannot create an array of 4294967296x4294967296 double elements" + exceeds},
        {[] { return factory.createArray(ArrayType::CELL, {2, big, big}); },
         "Cannot create an array of 2x4294967296x4294967296 cell elements" + exceeds},
        {[] { return factory.createArray(ArrayType::STRING, {big, big}); },
         "Cannot create an array of 4294967296x4294967296 string elements" + exceeds},
        {[] { return factory.createValueObjectArray({big, big}); },
         "Cannot create an array of 4294967296x4294967296 value object elements" + exceeds},
        {[] { return factory.createArray(ArrayType::SPARSE_DOUBLE, {big, big}); },
         "Cannot create an array of 4294967296x4294967296 sparse double elements" + exceeds},
        {[] { return factory.createStructArray({big, big / 2}, {"a", "b"}); },
         "Cannot create an array of 4294967296x2147483648 struct elements with 2 fields" + exceeds},
    };
    for (auto const& c : cases)
        EXPECT_THROW_WHAT(c.make(), EArrayTooLarge, c.text);
}

TEST(SizeLimits, OverflowingByteSizeIsRefused)
{
    EXPECT_THROW_WHAT(factory.createArray(ArrayType::DOUBLE, {1UL << 61, 1}), EArrayTooLarge,
                      "Cannot create an array of 2305843009213693952x1 double elements: 2305843009213693952 "
                      "elements of 8 bytes exceed the largest possible allocation.");
    EXPECT_THROW_WHAT(factory.createArray(ArrayType::COMPLEX_INT64, {1UL << 59, 1}), EArrayTooLarge,
                      "Cannot create an array of 576460752303423488x1 complex int64 elements: 576460752303423488 "
                      "elements of 16 bytes exceed the largest possible allocation.");
    void* data = nullptr;
    void (*deleter)(void*) = nullptr;
    EXPECT_THROW_WHAT(factory.createBuffer(&data, &deleter, ArrayType::UINT64, 1UL << 62), EArrayTooLarge,
                      "Cannot create a buffer of 4611686018427387904 uint64 elements: 4611686018427387904 elements "
                      "of 8 bytes exceed the largest possible allocation.");
}

TEST(SizeLimits, MemoryThatCannotBeHadIsRefused)
{
    // 512 TiB is more than the address space of the machine.
    EXPECT_THROW_WHAT(factory.createArray(ArrayType::UINT8, {1UL << 49, 1}), EArrayTooLarge,
                      "Cannot create an array of 562949953421312x1 uint8 elements: allocating 562949953421312 "
                      "bytes failed.");
}

TEST(SizeLimits, LargeArraysCostNothingUntilWritten)
{
    // 2 GiB of elements of each kind, as a reader makes them for a document that claims them and then
    // holds only a few elements: written at both ends, then dropped.
    unsigned long const eightByteElements = 1UL << 28;
    ClassInfo const cls = factory.createClassInfo(ZorbalClassIdentifier("pkg.Cls"));
    std::vector<std::pair<std::string, std::function<void()>>> const cases{
        {"double",
         [&] {
             TypedArray<double> array = factory.createArray<double>({eightByteElements, 1});
             auto const elements = getWritableElements<double>(array);
             elements.begin()[0] = 1;
             elements.end()[-1] = 2;
         }},
        {"cell",
         [&] {
             TypedArray<Array> array = factory.createArray<Array>({eightByteElements, 1});
             array[0] = factory.createScalar(1.0);
             array[eightByteElements - 1] = factory.createScalar(2.0);
         }},
        {"string",
         [&] {
             TypedArray<zorbal::data::optional<std::u16string>> array =
                 factory.createArray<zorbal::data::optional<std::u16string>>({1, eightByteElements});
             array[0] = std::u16string(u"x");
         }},
        {"struct",
         [&] {
             StructArray array = factory.createStructArray({eightByteElements / 2, 1}, {"a", "b"});
             array[0]["a"] = factory.createScalar(1.0);
         }},
        {"value object",
         [&] {
             ValueObjectArray array = factory.createValueObjectArray({eightByteElements, 1}, cls);
             array[0] = factory.createValueObject(cls);
         }},
        {"enumeration",
         [&] {
             EnumArray array = factory.createEnumArray({2 * eightByteElements, 1}, "pkg.Color");
             array[0] = "red";
         }},
        {"handle",
         [&] {
             TypedArray<HandleObjectRef> array = factory.createArray<HandleObjectRef>({eightByteElements, 1});
             array[0] = factory.createHandleObjectRef(KVXID(), 1);
         }},
    };
    for (auto const& [kind, make] : cases) {
        long const before = residentBytes();
        make();
        EXPECT_LT(residentBytes() - before, 64L << 20) << kind;
    }
}

TEST(SizeLimits, LargeArrayHoldsLittleMemoryWhileAlive)
{
    long const before = residentBytes();
    TypedArray<double> array = factory.createArray<double>({1UL << 28, 1});
    getWritableElements<double>(array).begin()[1000] = 1;
    EXPECT_LT(residentBytes() - before, 64L << 20);
    EXPECT_EQ(std::as_const(array)[1000], 1);
    EXPECT_EQ(std::as_const(array)[(1UL << 28) - 1], 0);
}

TEST(SizeLimits, ZeroDimensionMakesAnEmptyArrayHoweverLargeTheOthers)
{
    Array const empty = factory.createArray(ArrayType::DOUBLE, {big, big, 0});
    EXPECT_EQ(empty.getNumberOfElements(), 0u);
    EXPECT_EQ(factory.createStructArray({0, big}, {"a"}).getNumberOfElements(), 0u);
}
