// Sparse matrices: the non-zero elements in column-major order, with their rows and columns.
#pragma once

#include "array_impl.hpp"

#include <memory>

namespace zorbal::data::detail {

/// Memory handed over with the function that frees it.
using Buffer = std::unique_ptr<void, void (*)(void*)>;
using IndexBuffer = std::unique_ptr<unsigned long[], void (*)(void*)>;

/// Three parallel sequences of nonZeros entries, sorted by column then row, each coordinate once and
/// no value zero. It never changes once made.
class SparseArrayImpl final : public ArrayImpl {
public:
    /// Takes the buffers as they are; they must already be in that order.
    SparseArrayImpl(foundation::zorbaldata::ArrayType type, Dimensions dimensions,
                    unsigned long nonZeros, Buffer values, IndexBuffer rows, IndexBuffer cols);

    unsigned long nonZeros() const noexcept { return nonZeros_; }
    unsigned long const* rows() const noexcept { return rows_.get(); }
    unsigned long const* cols() const noexcept { return cols_.get(); }
    void const* values() const noexcept { return values_.get(); }

    bool sameContent(ArrayImpl const& other) const override;

private:
    unsigned long nonZeros_;
    Buffer values_;
    IndexBuffer rows_;
    IndexBuffer cols_;
};

/// A sparse array of the type from entries in any order, combined and sorted as SparseArrayImpl keeps them.
/// @throws as ArrayFactory::createSparseArray.
SparseArrayImpl* makeSparseArray(foundation::zorbaldata::ArrayType type, Dimensions dimensions,
                                 unsigned long nonZeros, Buffer values, IndexBuffer rows, IndexBuffer cols);

} // namespace zorbal::data::detail
