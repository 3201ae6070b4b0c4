// Sparse matrices: how entries given in any order become the canonical form, and the SparseArray view.
#include "sparse_array_impl.hpp"

#include "access.hpp"
#include "array_storage.hpp"
#include "plain_types.hpp"
#include "size_limits.hpp"
#include "type_names.hpp"

#include <foundation/zorbaldata/exceptions.hpp>
#include <foundation/zorbaldata/sparse_array.hpp>

#include <algorithm>
#include <complex>
#include <cstdlib>
#include <cstring>
#include <numeric>
#include <string>

namespace zorbal::data::detail {

namespace fz = foundation::zorbaldata;
using fz::ArrayType;

SparseArrayImpl::SparseArrayImpl(ArrayType type, Dimensions dimensions, unsigned long nonZeros,
                                 Buffer values, IndexBuffer rows, IndexBuffer cols)
    : ArrayImpl(type, dimensions), nonZeros_(nonZeros), values_(std::move(values)), rows_(std::move(rows)),
      cols_(std::move(cols))
{
}

namespace {

void freeMemory(void* memory) noexcept
{
    std::free(memory);
}

/// Calls f(std::type_identity<T>{}) with the value type T of a sparse type.
template <typename F>
decltype(auto) visitSparseType(ArrayType type, F&& f)
{
    switch (type) {
    case ArrayType::SPARSE_LOGICAL: return f(std::type_identity<bool>{});
    case ArrayType::SPARSE_DOUBLE: return f(std::type_identity<double>{});
    case ArrayType::SPARSE_SINGLE: return f(std::type_identity<float>{});
    case ArrayType::SPARSE_COMPLEX_DOUBLE: return f(std::type_identity<std::complex<double>>{});
    case ArrayType::SPARSE_COMPLEX_SINGLE: return f(std::type_identity<std::complex<float>>{});
    default:
        fz::detail::requireKnownType(type);
        throw fz::ETypeMismatch(std::string(fz::detail::typeName(type)) + " is no sparse type.");
    }
}

template <typename T>
bool isZero(T const& value) noexcept
{
    return value == T();
}

/// Entries at one coordinate add up; for logicals, true stays true.
template <typename T>
T combine(T const& a, T const& b) noexcept
{
    if constexpr (std::is_same_v<T, bool>)
        return a || b;
    else
        return a + b;
}

bool before(unsigned long rowA, unsigned long colA, unsigned long rowB, unsigned long colB) noexcept
{
    return colA < colB || (colA == colB && rowA < rowB);
}

template <typename T>
bool isCanonical(T const* values, unsigned long const* rows, unsigned long const* cols, unsigned long n) noexcept
{
    for (unsigned long i = 0; i < n; ++i)
        if (isZero(values[i]) || (i > 0 && !before(rows[i - 1], cols[i - 1], rows[i], cols[i])))
            return false;
    return true;
}

template <typename T>
SparseArrayImpl* canonicalArray(ArrayType type, Dimensions dimensions, unsigned long n, Buffer values,
                                IndexBuffer rows, IndexBuffer cols)
{
    auto const* v = static_cast<T const*>(values.get());
    unsigned long const* r = rows.get();
    unsigned long const* c = cols.get();
    if (isCanonical(v, r, c, n))
        return new SparseArrayImpl(type, dimensions, n, std::move(values), std::move(rows), std::move(cols));

    // A stable order adds duplicates in the order they were given, so the sums are reproducible.
    std::vector<unsigned long> order(n);
    std::iota(order.begin(), order.end(), 0UL);
    std::stable_sort(order.begin(), order.end(), [&](unsigned long a, unsigned long b) { return before(r[a], c[a], r[b], c[b]); });

    auto const subject = [&] { return fz::detail::arrayText(type, dimensions); };
    Buffer outValues(fz::detail::allocateUninitialized(n, sizeof(T), subject), freeMemory);
    IndexBuffer outRows(static_cast<unsigned long*>(fz::detail::allocateUninitialized(n, sizeof(unsigned long), subject)), freeMemory);
    IndexBuffer outCols(static_cast<unsigned long*>(fz::detail::allocateUninitialized(n, sizeof(unsigned long), subject)), freeMemory);
    auto* ov = static_cast<T*>(outValues.get());
    unsigned long kept = 0;
    for (unsigned long i = 0; i < n;) {
        unsigned long const first = order[i];
        T sum = v[first];
        for (++i; i < n && r[order[i]] == r[first] && c[order[i]] == c[first]; ++i)
            sum = combine(sum, v[order[i]]);
        if (isZero(sum))
            continue;
        ov[kept] = sum;
        outRows[kept] = r[first];
        outCols[kept] = c[first];
        ++kept;
    }
    return new SparseArrayImpl(type, dimensions, kept, std::move(outValues), std::move(outRows), std::move(outCols));
}

} // namespace

SparseArrayImpl* makeSparseArray(ArrayType type, Dimensions dimensions, unsigned long nonZeros,
                                 Buffer values, IndexBuffer rows, IndexBuffer cols)
{
    return visitSparseType(type, [&]<typename T>(std::type_identity<T>) {
        if (dimensions.size() != 2)
            throw fz::EInvalidArgument("A sparse array has two dimensions; " + std::to_string(dimensions.size())
                                       + " were given.");
        // Counting the elements refuses a matrix whose size does not fit, before the entries are read.
        fz::detail::elementCount(type, dimensions);
        if (nonZeros != 0 && (!values || !rows || !cols))
            throw fz::EInvalidArgument("A sparse array of " + std::to_string(nonZeros)
                                       + " entries needs a value, a row and a column buffer.");
        for (unsigned long i = 0; i < nonZeros; ++i)
            if (rows[i] >= dimensions[0] || cols[i] >= dimensions[1])
                throw fz::EIndexOutOfRange("Sparse entry " + std::to_string(i) + " lies at row " + std::to_string(rows[i])
                                           + ", column " + std::to_string(cols[i]) + ", outside the "
                                           + fz::detail::dimensionsText(dimensions) + " array.");
        return canonicalArray<T>(type, dimensions, nonZeros, std::move(values), std::move(rows), std::move(cols));
    });
}

bool SparseArrayImpl::sameContent(ArrayImpl const& other) const
{
    auto const& that = static_cast<SparseArrayImpl const&>(other);
    if (nonZeros_ != that.nonZeros_ || !fz::detail::sameElements(rows(), that.rows(), nonZeros_)
        || !fz::detail::sameElements(cols(), that.cols(), nonZeros_))
        return false;
    return visitSparseType(type(), [&]<typename T>(std::type_identity<T>) {
        return fz::detail::sameElements(static_cast<T const*>(values()), static_cast<T const*>(that.values()), nonZeros_);
    });
}

} // namespace zorbal::data::detail

namespace foundation::zorbaldata::detail {

SparseParts sparseParts(Array const& array, ArrayType type)
{
    if (!isSparseType(type))
        throw ETypeMismatch(std::string(typeName(type)) + " is no sparse type.");
    auto const& sparse = storageOf<zorbal::data::detail::SparseArrayImpl>(array, type);
    return {sparse.rows(), sparse.cols(), sparse.values(), sparse.nonZeros()};
}

} // namespace foundation::zorbaldata::detail
