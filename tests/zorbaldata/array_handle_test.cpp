// The Array handle: the default handle, type values and names, dimensions, views and typed access.
#include "expect_throw.hpp"

#include <foundation/zorbaldata.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <complex>
#include <cstdlib>
#include <iterator>
#include <memory>
#include <string>

using namespace foundation::zorbaldata;

static_assert(std::contiguous_iterator<TypedIterator<double>>);
static_assert(std::contiguous_iterator<TypedIterator<std::complex<float> const>>);

namespace {

ArrayFactory const factory;
using Dimensions = std::vector<unsigned long>;
using Buffer = std::unique_ptr<void, void (*)(void*)>;

// The name of each value from 0 to 38, the values hosts exchange; "unknown" marks a value that is no type.
char const* const typeNames[] = {"unknown", "logical", "char", "string", "double", "single", "int8", "uint8", "int16",
    "uint16", "int32", "uint32", "int64", "uint64", "complex double", "complex single", "complex int8",
    "complex uint8", "complex int16", "complex uint16", "complex int32", "complex uint32", "complex int64",
    "complex uint64", "cell", "struct", "unknown", "value object", "handle object", "enumeration", "sparse logical",
    "sparse double", "sparse complex double", "unknown", "unknown", "unknown", "sparse single",
    "sparse complex single", "unknown"};

} // namespace

TEST(ArrayHandle, DefaultAndMovedFromHandlesAreAnEmptyDoubleMatrix)
{
    Array const none;
    EXPECT_EQ(none.getType(), ArrayType::DOUBLE);
    EXPECT_EQ(none.getDimensions(), (Dimensions{0, 0}));
    EXPECT_EQ(none, factory.createArray(ArrayType::DOUBLE, {0, 0}));
    EXPECT_NE(none, factory.createArray(ArrayType::DOUBLE, {0, 3}));
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
    }
    EXPECT_EQ(EArrayUnknownDataType().code(), 8);
}

TEST(ArrayHandle, DimensionsAreKeptAsGiven)
{
    struct Case {
        Dimensions dimensions;
        unsigned long count;
    };
    for (auto const& [dimensions, count] : {Case{{2, 3}, 6}, Case{{2, 3, 1}, 6}, Case{{3}, 3}, Case{{}, 1},
                                            Case{{0, 5}, 0}, Case{{4294967296, 4294967296, 0}, 0}}) {
        Array const array = factory.createArray(ArrayType::INT16, dimensions);
        EXPECT_EQ(array.getDimensions(), dimensions);
        EXPECT_EQ(array.getNumberOfElements(), count);
    }
}

TEST(ArrayHandle, ViewOfAnotherTypeIsRefused)
{
    EXPECT_THROW_WHAT(TypedArray<double>{factory.createArray(ArrayType::CELL, {1, 1})}, ETypeMismatch,
                      "Cannot view an array of cell elements as an array of double elements.");
    EXPECT_THROW_WHAT(getReadOnlyElements<int>(Array()), ETypeMismatch,
                      "Cannot view an array of double elements as an array of int32 elements.");
    EXPECT_THROW_WHAT(SparseArray<double>{Array()}, ETypeMismatch,
                      "Cannot view an array of double elements as an array of sparse double elements.");
    TypedArray<double> view = factory.createScalar(1.0);
    EXPECT_THROW_WHAT(view = factory.createScalar(1), ETypeMismatch,
                      "Cannot view an array of int32 elements as an array of double elements.");
    EXPECT_EQ(view.getType(), ArrayType::DOUBLE);
}

TEST(TypedArray, ElementsGivenInColumnMajorOrderMustFillTheArray)
{
    EXPECT_EQ(factory.createArray<double>({2, 3}, {1, 4, 2, 5, 3, 6})[4], 3);
    EXPECT_THROW_WHAT(factory.createArray<double>({2, 2}, {1, 2, 3}), EInvalidArgument,
                      "The array has 4 elements; 3 were given.");
}

template <typename T>
class PlainElementTypes : public testing::Test {};

using PlainTypes = testing::Types<bool, char16_t, double, float, signed char, unsigned char, short, unsigned short, int,
    unsigned int, long long, unsigned long long, std::complex<double>, std::complex<float>, std::complex<signed char>,
    std::complex<unsigned char>, std::complex<short>, std::complex<unsigned short>, std::complex<int>,
    std::complex<unsigned int>, std::complex<long long>, std::complex<unsigned long long>>;
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
// copy of its own for a writer of a shared array.
TEST(Buffers, ArrayTakesOverABuffer)
{
    static int freed = 0;
    auto* const values = static_cast<double*>(std::malloc(3 * sizeof(double)));
    std::fill(values, values + 3, 1.0);
    {
        Array array = factory.createArrayFromBuffer(ArrayType::DOUBLE, {3, 1}, Buffer(values, [](void* block) {
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
    EXPECT_THROW(factory.createArrayFromBuffer(ArrayType::CELL, {1, 1}, Buffer(nullptr, std::free)), ETypeMismatch);
    EXPECT_THROW(factory.createArrayFromBuffer(ArrayType::DOUBLE, {2, 2}, Buffer(nullptr, std::free)), EInvalidArgument);
    EXPECT_THROW(factory.createArrayFromBuffer(ArrayType::DOUBLE, {1UL << 40, 1UL << 40}, Buffer(std::malloc(8), std::free)),
                 EArrayTooLarge);
}

TEST(Buffers, HoldFixedSizeElementsOnly)
{
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
