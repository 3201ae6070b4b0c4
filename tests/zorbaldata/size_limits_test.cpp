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

TEST(SizeLimits, ArraysTooLargeToCountOrHoldAreRefused)
{
    struct Case {
        std::function<Array()> make;
        std::string text;
    };
    std::string const exceeds = ": its number of elements exceeds 18446744073709551615.";
    std::string const beyond = " bytes exceed the largest possible allocation.";
    std::vector<Case> const cases{
        {[] { return factory.createArray(ArrayType::DOUBLE, {big, big}); }, "4294967296x4294967296 double elements" + exceeds},
        {[] { return factory.createArray(ArrayType::CELL, {2, big, big}); }, "2x4294967296x4294967296 cell elements" + exceeds},
        {[] { return factory.createArray(ArrayType::STRING, {big, big}); }, "4294967296x4294967296 string elements" + exceeds},
        {[] { return factory.createValueObjectArray({big, big}); }, "4294967296x4294967296 value object elements" + exceeds},
        {[] { return factory.createArray(ArrayType::SPARSE_DOUBLE, {big, big}); },
         "4294967296x4294967296 sparse double elements" + exceeds},
        {[] { return factory.createStructArray({big, big / 2}, {"a", "b"}); },
         "4294967296x2147483648 struct elements with 2 fields" + exceeds},
        {[] { return factory.createArray(ArrayType::DOUBLE, {1UL << 61, 1}); },
         "2305843009213693952x1 double elements: 2305843009213693952 elements of 8" + beyond},
        {[] { return factory.createArray(ArrayType::COMPLEX_INT64, {1UL << 59, 1}); },
         "576460752303423488x1 complex int64 elements: 576460752303423488 elements of 16" + beyond},
        // 512 TiB is more than the address space of the machine.
        {[] { return factory.createArray(ArrayType::UINT8, {1UL << 49, 1}); },
         "562949953421312x1 uint8 elements: allocating 562949953421312 bytes failed."},
    };
    for (auto const& c : cases)
        EXPECT_THROW_WHAT(c.make(), EArrayTooLarge, "Cannot create an array of " + c.text);
    void* data = nullptr;
    void (*deleter)(void*) = nullptr;
    EXPECT_THROW_WHAT(factory.createBuffer(&data, &deleter, ArrayType::UINT64, 1UL << 62), EArrayTooLarge,
                      "Cannot create a buffer of 4611686018427387904 uint64 elements: 4611686018427387904 elements "
                      "of 8" + beyond);
}

TEST(SizeLimits, ZeroDimensionMakesAnEmptyArrayHoweverLargeTheOthers)
{
    EXPECT_EQ(factory.createArray(ArrayType::DOUBLE, {big, big, 0}).getNumberOfElements(), 0u);
    EXPECT_EQ(factory.createStructArray({0, big}, {"a"}).getNumberOfElements(), 0u);
}

// Half a gibibyte of elements of each kind, as a reader makes them for a document that claims them and
// then holds only a few elements: neither making the array nor writing one of its elements touches the rest.
TEST(SizeLimits, LargeArraysCostNothingUntilWritten)
{
    unsigned long const n = 1UL << 26;
    for (ArrayType type : {ArrayType::DOUBLE, ArrayType::CELL, ArrayType::STRING, ArrayType::VALUE_OBJECT,
                           ArrayType::ENUM, ArrayType::HANDLE_OBJECT_REF}) {
        long const before = residentBytes();
        Array const array = factory.createArray(type, {n, 1});
        EXPECT_LT(residentBytes() - before, 64L << 20) << getTypeName(type);
    }
    long const before = residentBytes();
    TypedArray<double> numbers = factory.createArray<double>({n, 1});
    numbers[n - 1] = 2;
    TypedArray<Array> cells = factory.createArray<Array>({n, 1});
    cells[n - 1] = factory.createScalar(2.0);
    StructArray records = factory.createStructArray({n, 1}, {"a", "b"});
    records[n - 1]["b"] = factory.createScalar(2.0);
    EXPECT_LT(residentBytes() - before, 64L << 20);
    EXPECT_EQ(std::as_const(numbers)[n - 2], 0);
}
