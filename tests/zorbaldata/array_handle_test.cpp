// The Array handle: what a default handle is, how types and dimensions are kept, and typed access.
#include "expect_throw.hpp"

#include <foundation/zorbaldata.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <complex>
#include <iterator>
#include <numeric>

using namespace foundation::zorbaldata;

static_assert(std::contiguous_iterator<TypedIterator<double>>);
static_assert(std::contiguous_iterator<TypedIterator<std::complex<float> const>>);

namespace {

ArrayFactory const factory;

} // namespace

TEST(ArrayHandle, DefaultHandleIsAnEmptyDoubleMatrix)
{
    Array const none;
    EXPECT_EQ(none.getType(), ArrayType::DOUBLE);
    EXPECT_EQ(none.getDimensions(), (std::vector<unsigned long>{0, 0}));
    EXPECT_EQ(none.getNumberOfElements(), 0u);
    EXPECT_EQ(none, factory.createArray(ArrayType::DOUBLE, {0, 0}));
    EXPECT_NE(none, factory.createArray(ArrayType::DOUBLE, {0, 3}));
    EXPECT_NE(none, factory.createArray(ArrayType::LOGICAL, {0, 0}));

    TypedArray<double> view(none);
    EXPECT_EQ(view.begin(), view.end());
    auto const range = getReadOnlyElements<double>(none);
    EXPECT_EQ(range.begin(), range.end());
}

TEST(ArrayHandle, MovedFromHandleIsTheDefault)
{
    Array source = factory.createScalar(5.0);
    Array const target = std::move(source);
    EXPECT_EQ(target.getNumberOfElements(), 1u);
    EXPECT_EQ(source, Array());
}

TEST(ArrayHandle, DimensionsAreKeptAsGiven)
{
    struct Case {
        std::vector<unsigned long> dimensions;
        unsigned long count;
    };
    for (auto const& [dimensions, count] : {Case{{2, 3}, 6}, Case{{2, 3, 1}, 6}, Case{{3}, 3}, Case{{}, 1},
                                            Case{{0, 5}, 0}, Case{{4294967296, 4294967296, 0}, 0}}) {
        Array const array = factory.createArray(ArrayType::INT16, dimensions);
        EXPECT_EQ(array.getDimensions(), dimensions);
        EXPECT_EQ(array.getNumberOfElements(), count);
    }
}

TEST(ArrayHandle, EveryTypeCanBeCreated)
{
    for (int value = 1; value <= 37; ++value) {
        auto const type = static_cast<ArrayType>(value);
        if (value == 26 || (value >= 33 && value <= 35))
            continue;
        Array const array = factory.createArray(type, {2, 2});
        EXPECT_EQ(array.getType(), type) << value;
        EXPECT_EQ(array.getDimensions(), (std::vector<unsigned long>{2, 2})) << value;
    }
}

TEST(ArrayHandle, ValuesThatAreNoTypeAreRefused)
{
    for (int value : {0, 26, 33, 34, 35, 38, -1})
        EXPECT_THROW_WHAT(factory.createArray(static_cast<ArrayType>(value), {1, 1}), EArrayUnknownDataType,
                          "Unknown DataType field in zorbal::data::Array.");
    EXPECT_EQ(EArrayUnknownDataType().code(), 8);
}

TEST(ArrayHandle, TypeNamesTellKindAndElement)
{
    EXPECT_EQ(getTypeName(ArrayType::DOUBLE), "double");
    EXPECT_EQ(getTypeName(ArrayType::COMPLEX_UINT16), "complex uint16");
    EXPECT_EQ(getTypeName(ArrayType::SPARSE_COMPLEX_SINGLE), "sparse complex single");
    EXPECT_EQ(getTypeName(ArrayType::ENUM), "enumeration");
    EXPECT_EQ(getTypeName(static_cast<ArrayType>(26)), "unknown");
}

TEST(ArrayHandle, TypeValuesAreFixed)
{
    EXPECT_EQ(static_cast<int>(ArrayType::LOGICAL), 1);
    EXPECT_EQ(static_cast<int>(ArrayType::UINT64), 13);
    EXPECT_EQ(static_cast<int>(ArrayType::COMPLEX_UINT64), 23);
    EXPECT_EQ(static_cast<int>(ArrayType::VALUE_OBJECT), 27);
    EXPECT_EQ(static_cast<int>(ArrayType::SPARSE_COMPLEX_DOUBLE), 32);
    EXPECT_EQ(static_cast<int>(ArrayType::SPARSE_SINGLE), 36);
    EXPECT_EQ(static_cast<int>(ArrayType::SPARSE_COMPLEX_SINGLE), 37);
}

TEST(ArrayHandle, ViewOfAnotherTypeIsRefused)
{
    Array const cell = factory.createArray(ArrayType::CELL, {1, 1});
    EXPECT_THROW_WHAT(TypedArray<double>{cell}, ETypeMismatch,
                      "Cannot view an array of cell elements as an array of double elements.");
    EXPECT_THROW_WHAT(getReadOnlyElements<int>(Array()), ETypeMismatch,
                      "Cannot view an array of double elements as an array of int32 elements.");
    EXPECT_THROW_WHAT(SparseArray<double>{Array()}, ETypeMismatch,
                      "Cannot view an array of double elements as an array of sparse double elements.");
}

TEST(ArrayHandle, AssigningAnotherTypeToAViewIsRefused)
{
    TypedArray<double> view = factory.createScalar(1.0);
    EXPECT_THROW(view = factory.createScalar(1), ETypeMismatch);
    EXPECT_EQ(view.getType(), ArrayType::DOUBLE);
}

TEST(TypedArray, ElementsAreInColumnMajorOrder)
{
    // Rows 1 2 3 and 4 5 6.
    TypedArray<double> const matrix = factory.createArray<double>({2, 3}, {1, 4, 2, 5, 3, 6});
    auto const elements = getReadOnlyElements<double>(matrix);
    EXPECT_EQ(std::vector<double>(elements.begin(), elements.end()), (std::vector<double>{1, 4, 2, 5, 3, 6}));
    EXPECT_EQ(matrix[1], 4);
    EXPECT_THROW_WHAT(factory.createArray<double>({2, 2}, {1, 2, 3}), EInvalidArgument,
                      "The array has 4 elements; 3 were given.");
}

TEST(TypedArray, ScalarIsOneByOne)
{
    TypedArray<int> const scalar = factory.createScalar(7);
    EXPECT_EQ(scalar.getDimensions(), (std::vector<unsigned long>{1, 1}));
    EXPECT_EQ(scalar.getType(), ArrayType::INT32);
    EXPECT_EQ(scalar[0], 7);
}

template <typename T>
class PlainElementTypes : public testing::Test {};

using PlainTypes = testing::Types<bool, char16_t, double, float, signed char, unsigned char, short, unsigned short, int,
                                  unsigned int, long long, unsigned long long, std::complex<double>,
                                  std::complex<float>, std::complex<signed char>, std::complex<unsigned char>,
                                  std::complex<short>, std::complex<unsigned short>, std::complex<int>,
                                  std::complex<unsigned int>, std::complex<long long>,
                                  std::complex<unsigned long long>>;
TYPED_TEST_SUITE(PlainElementTypes, PlainTypes);

template <typename T>
T sample(int i)
{
    if constexpr (detail::isComplex<T>)
        return T(static_cast<typename T::value_type>(i + 1), static_cast<typename T::value_type>(i + 2));
    else if constexpr (std::is_same_v<T, bool>)
        return i % 2 == 0;
    else
        return static_cast<T>(i + 1);
}

TYPED_TEST(PlainElementTypes, StartZeroAndKeepWhatIsWritten)
{
    using T = TypeParam;
    TypedArray<T> array = factory.createArray<T>({2, 3});
    EXPECT_EQ(array.getType(), detail::ElementType<T>::value);
    auto const before = getReadOnlyElements<T>(array);
    EXPECT_TRUE(std::all_of(before.begin(), before.end(), [](T const& x) { return x == T(); }));

    int i = 0;
    for (T& element : getWritableElements<T>(array))
        element = sample<T>(i++);
    EXPECT_EQ(i, 6);

    auto const after = getReadOnlyElements<T>(array);
    EXPECT_EQ(after.end() - after.begin(), 6);
    for (int k = 0; k < 6; ++k)
        EXPECT_EQ(after.begin()[k], sample<T>(k));
}

TEST(TypedArray, IteratorsOfReferencedElementsWalkByIncrement)
{
    TypedArray<Array> cells = factory.createArray<Array>({1, 3});
    auto const range = getWritableElements<Array>(cells);
    double value = 0;
    for (auto it = range.begin(); !it.isEqual(range.end()); it.increment())
        detail::setElement<Array>(it.getRef(), factory.createScalar(++value));
    std::vector<double> seen;
    for (auto const cell : getReadOnlyElements<Array>(cells))
        seen.push_back(TypedArray<double>(cell.value())[0]);
    EXPECT_EQ(seen, (std::vector<double>{1, 2, 3}));
    EXPECT_THROW_WHAT(cells[3], EIndexOutOfRange, "Index 3 is outside an array of 3 elements.");
}
