// The Array handle: the default handle, type values and names, dimensions, views and typed access;
// arrays made on buffers, sparse matrices, and arrays too large to count, to hold or to touch.
#include "expect_throw.hpp"

#include <foundation/zorbaldata.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <complex>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <tuple>
#include <unistd.h>

using namespace foundation::zorbaldata;

static_assert(std::contiguous_iterator<TypedIterator<double>>);
static_assert(std::contiguous_iterator<TypedIterator<std::complex<float> const>>);

// Under AddressSanitizer a failed allocation aborts the process by default; the library's refusal of
// an allocation that fails is what is tested here, so the allocator must return null instead.
extern "C" __attribute__((visibility("default"), used)) char const* __asan_default_options()
{
    return "allocator_may_return_null=1";
}

namespace {

ArrayFactory const factory;
using Dimensions = std::vector<unsigned long>;
using Buffer = std::unique_ptr<void, void (*)(void*)>;
using Indices = std::unique_ptr<unsigned long[], void (*)(void*)>;
unsigned long const big = 4294967296UL;

// The name of each value from 0 to 38, the values hosts exchange; "unknown" marks a value that is no type.
char const* const typeNames[] = {"unknown", "logical", "char", "string", "double", "single", "int8", "uint8",
    "int16", "uint16", "int32", "uint32", "int64", "uint64", "complex double", "complex single",
    "complex int8", "complex uint8", "complex int16", "complex uint16", "complex int32", "complex uint32",
    "complex int64", "complex uint64", "cell", "struct", "unknown", "value object", "handle object",
    "enumeration", "sparse logical", "sparse double", "sparse complex double", "unknown", "unknown",
    "unknown", "sparse single", "sparse complex single", "unknown"};

// A buffer from the factory holding values, as a reader fills one.
template <typename T>
Buffer buffer(std::vector<T> const& values, ArrayType type = detail::ElementType<T>::value)
{
    void* data = nullptr;
    void (*deleter)(void*) = nullptr;
    factory.createBuffer(&data, &deleter, type, values.size());
    std::copy(values.begin(), values.end(), static_cast<T*>(data));
    return Buffer(data, deleter);
}

Indices indices(Dimensions const& places)
{
    Buffer owned = buffer(places, ArrayType::UINT64);
    auto const deleter = owned.get_deleter();
    return Indices(static_cast<unsigned long*>(owned.release()), deleter);
}

/// A sparse array made as a reader makes it: three buffers from the factory, handed over.
template <typename T>
Array sparse(ArrayType type, Dimensions const& rows, Dimensions const& cols, std::vector<T> const& values,
    Dimensions dimensions = {3, 3})
{
    return factory.createSparseArray(
        std::move(dimensions), rows.size(), type, buffer(values), indices(rows), indices(cols));
}

// The rows, columns and values of the stored elements, in storage order.
template <typename T>
using Contents = std::tuple<Dimensions, Dimensions, std::vector<T>>;

template <typename T>
Contents<T> contents(Array const& array)
{
    SparseArray<T> const view = array;
    auto const rows = view.getRows();
    auto const cols = view.getCols();
    EXPECT_EQ(rows.size(), view.getNumberOfNonZeroElements());
    return {{rows.begin(), rows.end()}, {cols.begin(), cols.end()}, {view.begin(), view.end()}};
}

/// The memory the process holds, in bytes.
long residentBytes()
{
    long size = 0, resident = 0;
    std::ifstream("/proc/self/statm") >> size >> resident;
    return resident * sysconf(_SC_PAGESIZE);
}

} // namespace

TEST(ArrayHandle, DefaultAndMovedFromHandlesAreAnEmptyDoubleMatrix)
{
    Array const none;
    EXPECT_EQ(none.getType(), ArrayType::DOUBLE);
    EXPECT_EQ(none.getDimensions(), (Dimensions{0, 0}));
    EXPECT_EQ(none, factory.createArray(ArrayType::DOUBLE, {0, 0}));
    EXPECT_NE(none, factory.createArray(ArrayType::LOGICAL, {0, 0}));
    EXPECT_EQ(TypedArray<double>(none).begin(), TypedArray<double>(none).end());
    Array source = factory.createScalar(5.0);
    Array const target = std::move(source);
    EXPECT_EQ(target.getNumberOfElements(), 1u);
    EXPECT_EQ(source, none);
}

TEST(ArrayHandle, EveryTypeValueHasItsNameAndOnlyTypesCanBeCreated)
{
    for (int value = -1; value <= 38; ++value) {
        auto const type = static_cast<ArrayType>(value);
        std::string const name = value < 0 ? "unknown" : typeNames[value];
        EXPECT_EQ(getTypeName(type), name) << value;
        if (name == "unknown") {
            EXPECT_THROW_WHAT(factory.createArray(type, {1, 1}), EArrayUnknownDataType,
                "Unknown DataType field in zorbal::data::Array.");
            continue;
        }
        Array const array = factory.createArray(type, {2, 2});
        EXPECT_EQ(array.getType(), type) << value;
        EXPECT_EQ(array.getDimensions(), (Dimensions{2, 2})) << value;
        // Messages name the type as getTypeName does.
        if (type != ArrayType::DOUBLE) {
            EXPECT_THROW_WHAT(TypedArray<double>{array}, ETypeMismatch,
                "Cannot view an array of " + name + " elements as an array of double elements.");
        }
    }
    EXPECT_EQ(EArrayUnknownDataType().code(), 8);
}

// Dimensions are kept as given; a zero dimension makes an empty array however large the others.
TEST(ArrayHandle, DimensionsAreKeptAsGiven)
{
    for (auto const& [dimensions, count] : {std::pair<Dimensions, unsigned long>{{2, 3}, 6}, {{2, 3, 1}, 6},
             {{3}, 3}, {{}, 1}, {{0, 5}, 0}, {{big, big, 0}, 0}}) {
        Array const array = factory.createArray(ArrayType::INT16, dimensions);
        EXPECT_EQ(array.getDimensions(), dimensions);
        EXPECT_EQ(array.getNumberOfElements(), count);
    }
    EXPECT_EQ(factory.createStructArray({0, big}, {"a"}).getNumberOfElements(), 0u);
}

TEST(ArrayHandle, ViewOfAnotherTypeIsRefused)
{
    Array plain = factory.createScalar(1.0);
    Array sparseArray = sparse<double>(ArrayType::SPARSE_DOUBLE, {0}, {0}, {1});
    EXPECT_THROW_WHAT(detail::writablePlainElements(plain, ArrayType::CELL), ETypeMismatch,
        "Elements of type cell are not one contiguous block.");
    EXPECT_THROW_WHAT(detail::readOnlyElements(plain, ArrayType::DOUBLE), ETypeMismatch,
        "Elements of type double are one contiguous block.");
    EXPECT_THROW_WHAT(detail::writableElements(sparseArray, ArrayType::SPARSE_DOUBLE), ETypeMismatch,
        "Elements of type sparse double cannot be written.");
    EXPECT_THROW_WHAT(getReadOnlyElements<int>(Array()), ETypeMismatch,
        "Cannot view an array of double elements as an array of int32 elements.");
    EXPECT_THROW_WHAT(SparseArray<double>{Array()}, ETypeMismatch,
        "Cannot view an array of double elements as an array of sparse double elements.");
    TypedArray<double> view = factory.createScalar(1.0);
    EXPECT_THROW_WHAT(view = factory.createScalar(1), ETypeMismatch,
        "Cannot view an array of int32 elements as an array of double elements.");
    EXPECT_EQ(view.getType(), ArrayType::DOUBLE);
    EXPECT_EQ(factory.createArray<double>({2, 3}, {1, 4, 2, 5, 3, 6})[4], 3);
    EXPECT_THROW_WHAT(factory.createArray<double>({2, 2}, {1, 2, 3}), EInvalidArgument,
        "The array has 4 elements; 3 were given.");
}

template <typename T>
class PlainElementTypes : public testing::Test {};

using PlainTypes = testing::Types<bool, char16_t, double, float, signed char, unsigned char, short,
    unsigned short, int, unsigned int, long long, unsigned long long, std::complex<double>,
    std::complex<float>, std::complex<signed char>, std::complex<unsigned char>, std::complex<short>,
    std::complex<unsigned short>, std::complex<int>, std::complex<unsigned int>, std::complex<long long>,
    std::complex<unsigned long long>>;
TYPED_TEST_SUITE(PlainElementTypes, PlainTypes);

// Each plain element type gives its array type, and a new array of it holds zeros.
TYPED_TEST(PlainElementTypes, GiveTheirTypeAndStartZero)
{
    using T = TypeParam;
    TypedArray<T> const array = factory.createArray<T>({2, 3});
    EXPECT_EQ(array.getType(), detail::ElementType<T>::value);
    auto const elements = getReadOnlyElements<T>(array);
    EXPECT_EQ(elements.end() - elements.begin(), 6);
    EXPECT_TRUE(std::all_of(elements.begin(), elements.end(), [](T const& x) { return x == T(); }));
}

// An array made on a buffer holds it as its own elements: no copy, its deleter called once, and a
// copy of its own for a writer of a shared array. Buffers hold fixed-size elements only.
TEST(Buffers, ArrayTakesOverABuffer)
{
    static int freed = 0;
    auto* const values = static_cast<double*>(std::malloc(3 * sizeof(double)));
    std::fill(values, values + 3, 1.0);
    {
        Array array = factory.createArrayFromBuffer(
            ArrayType::DOUBLE, {3, 1}, Buffer(values, [](void* block) { ++freed; std::free(block); }));
        EXPECT_EQ(&*getReadOnlyElements<double>(array).begin(), values);
        Array const copy = array;
        getWritableElements<double>(array).begin()[0] = 7;
        EXPECT_EQ(getReadOnlyElements<double>(copy).begin()[0], 1);
        EXPECT_EQ(freed, 0);
    }
    EXPECT_EQ(freed, 1);
    auto const fromBuffer = [](ArrayType type, Dimensions dimensions, void* data) {
        return factory.createArrayFromBuffer(type, std::move(dimensions), Buffer(data, std::free));
    };
    EXPECT_THROW(fromBuffer(ArrayType::CELL, {1, 1}, nullptr), ETypeMismatch);
    EXPECT_THROW(fromBuffer(ArrayType::DOUBLE, {2, 2}, nullptr), EInvalidArgument);
    EXPECT_THROW(fromBuffer(ArrayType::DOUBLE, {1UL << 40, 1UL << 40}, std::malloc(8)), EArrayTooLarge);

    void* data = nullptr;
    void (*deleter)(void*) = nullptr;
    factory.createBuffer(&data, &deleter, static_cast<int>(ArrayType::COMPLEX_DOUBLE), 0);
    EXPECT_EQ(data, nullptr);
    EXPECT_NE(deleter, nullptr);
    EXPECT_THROW_WHAT(factory.createBuffer(&data, &deleter, ArrayType::CELL, 1), ETypeMismatch,
        "Elements of type cell have no fixed size.");
    EXPECT_THROW_WHAT(factory.createBuffer(&data, &deleter, 26, 1), EArrayUnknownDataType,
        "Unknown DataType field in zorbal::data::Array.");
}

// Entries in any order become the non-zero elements in column-major order.
TEST(SparseArray, EntriesAreSortedCombinedAndZerosDroppedAndBuffersTakenOver)
{
    using C = std::complex<float>;
    Array const array = sparse<double>(ArrayType::SPARSE_DOUBLE, {2, 0, 1, 0}, {2, 1, 0, 0}, {9, 5.5, 1, 4});
    EXPECT_EQ(contents<double>(array), (Contents<double>{{0, 1, 0, 2}, {0, 0, 1, 2}, {4, 1, 5.5, 9}}));
    EXPECT_EQ(array.getNumberOfElements(), 9u);
    EXPECT_EQ(array, sparse<double>(ArrayType::SPARSE_DOUBLE, {0, 0, 1, 2}, {1, 0, 0, 2}, {5.5, 4, 1, 9}));
    EXPECT_NE(array, sparse<double>(ArrayType::SPARSE_DOUBLE, {0, 0, 1, 2}, {1, 0, 0, 2}, {5.5, 4, 1, 8}));
    EXPECT_EQ(contents<bool>(sparse<bool>(ArrayType::SPARSE_LOGICAL, {1, 1, 1}, {2, 2, 2}, {1, 1, 1})),
        (Contents<bool>{{1}, {2}, {true}}));
    EXPECT_EQ(contents<C>(sparse<C>(ArrayType::SPARSE_COMPLEX_SINGLE, {0, 0}, {0, 0}, {C(1, 2), C(3, -1)})),
        (Contents<C>{{0}, {0}, {C(4, 1)}}));
    Array const cancelled = sparse<float>(
        ArrayType::SPARSE_SINGLE, {0, 1, 1, 2}, {0, 1, 1, 2}, {0, 2, -2, 3});
    EXPECT_EQ(contents<float>(cancelled), (Contents<float>{{2}, {2}, {3}}));
    // The buffers are taken over, and no stored element needs none.
    Buffer values = buffer<double>({1, 2});
    void const* const given = values.get();
    SparseArray<double> const taken = factory.createSparseArray(
        {3, 3}, 2, ArrayType::SPARSE_DOUBLE, std::move(values), indices({0, 2}), indices({1, 1}));
    EXPECT_EQ(&*taken.begin(), given);
    SparseArray<bool> const empty = factory.createSparseArray({4, 5}, 0, ArrayType::SPARSE_LOGICAL,
        Buffer(nullptr, nullptr), Indices(nullptr, nullptr), Indices(nullptr, nullptr));
    EXPECT_EQ(empty.getNumberOfNonZeroElements(), 0u);
    EXPECT_EQ(empty.begin(), empty.end());
    EXPECT_EQ(empty.getNumberOfElements(), 20u);
    EXPECT_EQ(empty, factory.createArray(ArrayType::SPARSE_LOGICAL, {4, 5}));
}

TEST(SparseArray, BadInputIsRefused)
{
    EXPECT_THROW_WHAT(sparse<double>(ArrayType::SPARSE_DOUBLE, {0, 3}, {0, 0}, {1, 2}), EIndexOutOfRange,
        "Sparse entry 1 lies at row 3, column 0, outside the 3x3 array.");
    EXPECT_THROW_WHAT(sparse<double>(ArrayType::SPARSE_DOUBLE, {0}, {4}, {1}), EIndexOutOfRange,
        "Sparse entry 0 lies at row 0, column 4, outside the 3x3 array.");
    EXPECT_THROW_WHAT(sparse<double>(ArrayType::SPARSE_DOUBLE, {0}, {0}, {1}, {2, 2, 2}), EInvalidArgument,
        "A sparse array has two dimensions; 3 were given.");
    EXPECT_THROW_WHAT(factory.createArray(ArrayType::SPARSE_DOUBLE, {3}), EInvalidArgument,
        "A sparse array has two dimensions; 1 were given.");
    EXPECT_THROW_WHAT(
        sparse<double>(ArrayType::DOUBLE, {0}, {0}, {1}), ETypeMismatch, "double is no sparse type.");
    EXPECT_THROW_WHAT(factory.createSparseArray({3, 3}, 1, ArrayType::SPARSE_DOUBLE, Buffer(nullptr, nullptr),
                          indices({0}), indices({0})),
        EInvalidArgument, "A sparse array of 1 entries needs a value, a row and a column buffer.");
}

// Arrays too large to count or to hold are refused before anything is allocated.
TEST(SizeLimits, ArraysTooLargeToCountOrHoldAreRefused)
{
    std::string const exceeds = " elements: its number of elements exceeds 18446744073709551615.";
    std::string const beyond = " bytes exceed the largest possible allocation.";
    std::string const cannot = "Cannot create an array of ";
    std::tuple<ArrayType, Dimensions, std::string> const cases[] = {
        {ArrayType::DOUBLE, {big, big}, "4294967296x4294967296 double" + exceeds},
        {ArrayType::CELL, {2, big, big}, "2x4294967296x4294967296 cell" + exceeds},
        {ArrayType::STRING, {big, big}, "4294967296x4294967296 string" + exceeds},
        {ArrayType::SPARSE_DOUBLE, {big, big}, "4294967296x4294967296 sparse double" + exceeds},
        {ArrayType::DOUBLE, {1UL << 61, 1},
            "2305843009213693952x1 double elements: 2305843009213693952 elements of 8" + beyond},
        {ArrayType::COMPLEX_INT64, {1UL << 59, 1},
            "576460752303423488x1 complex int64 elements: 576460752303423488 elements of 16" + beyond},
        // 512 TiB is more than the address space of the machine.
        {ArrayType::UINT8, {1UL << 49, 1},
            "562949953421312x1 uint8 elements: allocating 562949953421312 bytes failed."},
    };
    for (auto const& c : cases)
        EXPECT_THROW_WHAT(
            factory.createArray(std::get<0>(c), std::get<1>(c)), EArrayTooLarge, cannot + std::get<2>(c));
    EXPECT_THROW_WHAT(factory.createValueObjectArray({big, big}), EArrayTooLarge,
        cannot + "4294967296x4294967296 value object" + exceeds);
    EXPECT_THROW_WHAT(factory.createStructArray({big, big / 2}, {"a", "b"}), EArrayTooLarge,
        cannot + "4294967296x2147483648 struct elements with 2 fields" + exceeds.substr(9));
    void* data = nullptr;
    void (*deleter)(void*) = nullptr;
    EXPECT_THROW_WHAT(factory.createBuffer(&data, &deleter, ArrayType::UINT64, 1UL << 62), EArrayTooLarge,
        "Cannot create a buffer of 4611686018427387904 uint64 elements: 4611686018427387904 elements of 8"
            + beyond);
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
