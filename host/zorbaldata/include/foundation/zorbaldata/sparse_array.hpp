// The view of sparse matrices.
#pragma once

#include <foundation/zorbaldata/array.hpp>
#include <foundation/zorbaldata/element_types.hpp>
#include <foundation/zorbaldata/export.hpp>
#include <foundation/zorbaldata/typed_iterator.hpp>

#include <span>
#include <utility>

namespace foundation::zorbaldata {

namespace detail {

/// The three parallel sequences of a sparse array.
struct SparseParts {
    unsigned long const* rows;
    unsigned long const* cols;
    void const* values;
    unsigned long nonZeros;
};

/// @throws ETypeMismatch when array is not of type.
FOUNDATION_ZORBALDATA_API SparseParts sparseParts(Array const& array, ArrayType type);

} // namespace detail

/// A handle on a sparse matrix whose stored elements are T. The stored elements are the non-zero ones,
/// in column-major order (by column, then by row), each coordinate once, rows and columns counted from 0.
/// The i-th value of begin() lies at row getRows()[i] and column getCols()[i].
template <detail::SparseElement T>
class FOUNDATION_ZORBALDATA_API SparseArray : public Array {
public:
    /// @throws ETypeMismatch when array is not a sparse array of T.
    SparseArray(Array const& array) : Array(array) { parts(); }
    /// @throws ETypeMismatch when array is not a sparse array of T.
    SparseArray(Array&& array) : Array(std::move(array)) { parts(); }

    unsigned long getNumberOfNonZeroElements() const { return parts().nonZeros; }
    std::span<unsigned long const> getRows() const
    {
        auto const p = parts();
        return {p.rows, p.nonZeros};
    }
    std::span<unsigned long const> getCols() const
    {
        auto const p = parts();
        return {p.cols, p.nonZeros};
    }
    /// The stored values.
    TypedIterator<T const> begin() const { return TypedIterator<T const>(static_cast<T const*>(parts().values)); }
    TypedIterator<T const> end() const
    {
        auto const p = parts();
        return TypedIterator<T const>(static_cast<T const*>(p.values) + p.nonZeros);
    }

private:
    detail::SparseParts parts() const { return detail::sparseParts(*this, detail::SparseElementType<T>::value); }
};

} // namespace foundation::zorbaldata
