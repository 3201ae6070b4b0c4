// Sparse matrices: entries in any order become the non-zero elements in column-major order.
#include "expect_throw.hpp"

#include <foundation/zorbaldata.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <complex>
#include <memory>
#include <tuple>
#include <vector>

using namespace foundation::zorbaldata;

namespace {

ArrayFactory const factory;

using Owned = std::unique_ptr<void, void (*)(void*)>;
using Indices = std::unique_ptr<unsigned long[], void (*)(void*)>;
using Places = std::vector<unsigned long>;

// A buffer from the factory holding values, as a reader fills one.
template <typename T>
Owned buffer(std::vector<T> const& values, ArrayType type = detail::ElementType<T>::value)
{
    void* data = nullptr;
    void (*deleter)(void*) = nullptr;
    factory.createBuffer(&data, &deleter, type, values.size());
    std::copy(values.begin(), values.end(), static_cast<T*>(data));
    return Owned(data, deleter);
}

Indices indices(Places const& places)
{
    Owned owned = buffer(places, ArrayType::UINT64);
    auto const deleter = owned.get_deleter();
    return Indices(static_cast<unsigned long*>(owned.release()), deleter);
}

/// A sparse array made as a reader makes it: three buffers from the factory, handed over.
template <typename T>
Array sparse(ArrayType type, Places const& rows, Places const& cols, std::vector<T> const& values,
             Places dimensions = {3, 3})
{
    return factory.createSparseArray(std::move(dimensions), rows.size(), type, buffer(values), indices(rows),
                                     indices(cols));
}

// The rows, columns and values of the stored elements, in storage order.
template <typename T>
using Contents = std::tuple<Places, Places, std::vector<T>>;

template <typename T>
Contents<T> contents(SparseArray<T> const& array)
{
    auto const rows = array.getRows();
    auto const cols = array.getCols();
    EXPECT_EQ(rows.size(), array.getNumberOfNonZeroElements());
    return {{rows.begin(), rows.end()}, {cols.begin(), cols.end()}, {array.begin(), array.end()}};
}

} // namespace

TEST(SparseArray, EntriesAreSortedCombinedAndZerosDropped)
{
    using C = std::complex<float>;
    SparseArray<double> const array = sparse<double>(ArrayType::SPARSE_DOUBLE, {2, 0, 1, 0}, {2, 1, 0, 0}, {9, 5.5, 1, 4});
    EXPECT_EQ(contents(array), (Contents<double>{{0, 1, 0, 2}, {0, 0, 1, 2}, {4, 1, 5.5, 9}}));
    EXPECT_EQ(array.getNumberOfElements(), 9u);
    EXPECT_EQ(array, sparse<double>(ArrayType::SPARSE_DOUBLE, {0, 0, 1, 2}, {1, 0, 0, 2}, {5.5, 4, 1, 9}));
    EXPECT_NE(array, sparse<double>(ArrayType::SPARSE_DOUBLE, {0, 0, 1, 2}, {1, 0, 0, 2}, {5.5, 4, 1, 8}));
    EXPECT_EQ(contents(SparseArray<bool>(sparse<bool>(ArrayType::SPARSE_LOGICAL, {1, 1, 1}, {2, 2, 2}, {true, true, true}))),
              (Contents<bool>{{1}, {2}, {true}}));
    EXPECT_EQ(contents(SparseArray<C>(sparse<C>(ArrayType::SPARSE_COMPLEX_SINGLE, {0, 0}, {0, 0}, {C(1, 2), C(3, -1)}))),
              (Contents<C>{{0}, {0}, {C(4, 1)}}));
    EXPECT_EQ(contents(SparseArray<float>(sparse<float>(ArrayType::SPARSE_SINGLE, {0, 1, 1, 2}, {0, 1, 1, 2}, {0, 2, -2, 3}))),
              (Contents<float>{{2}, {2}, {3}}));
}

TEST(SparseArray, BuffersAreTakenOverAndNoStoredElementNeedsNone)
{
    Owned values = buffer<double>({1, 2});
    void const* const given = values.get();
    SparseArray<double> const array = factory.createSparseArray({3, 3}, 2, ArrayType::SPARSE_DOUBLE, std::move(values),
                                                                indices({0, 2}), indices({1, 1}));
    EXPECT_EQ(&*array.begin(), given);
    SparseArray<bool> const empty = factory.createSparseArray({4, 5}, 0, ArrayType::SPARSE_LOGICAL, Owned(nullptr, nullptr),
                                                              Indices(nullptr, nullptr), Indices(nullptr, nullptr));
    EXPECT_EQ(empty.getNumberOfNonZeroElements(), 0u);
    EXPECT_EQ(empty.begin(), empty.end());
    EXPECT_EQ(empty.getNumberOfElements(), 20u);
    EXPECT_EQ(empty, factory.createArray(ArrayType::SPARSE_LOGICAL, {4, 5}));
}

TEST(SparseArray, BadInputIsRefused)
{
    EXPECT_THROW_WHAT(sparse<double>(ArrayType::SPARSE_DOUBLE, {0, 3}, {0, 0}, {1, 2}),
                      EIndexOutOfRange, "Sparse entry 1 lies at row 3, column 0, outside the 3x3 array.");
    EXPECT_THROW_WHAT(sparse<double>(ArrayType::SPARSE_DOUBLE, {0}, {4}, {1}), EIndexOutOfRange,
                      "Sparse entry 0 lies at row 0, column 4, outside the 3x3 array.");
    EXPECT_THROW_WHAT(sparse<double>(ArrayType::SPARSE_DOUBLE, {0}, {0}, {1}, {2, 2, 2}),
                      EInvalidArgument, "A sparse array has two dimensions; 3 were given.");
    EXPECT_THROW_WHAT(sparse<double>(ArrayType::DOUBLE, {0}, {0}, {1}), ETypeMismatch,
                      "double is no sparse type.");
    EXPECT_THROW_WHAT(factory.createSparseArray({3, 3}, 1, ArrayType::SPARSE_DOUBLE, Owned(nullptr, nullptr),
                                                indices({0}), indices({0})),
                      EInvalidArgument, "A sparse array of 1 entries needs a value, a row and a column buffer.");
    EXPECT_THROW_WHAT(factory.createArray(ArrayType::SPARSE_DOUBLE, {3}), EInvalidArgument,
                      "A sparse array has two dimensions; 1 were given.");
}
