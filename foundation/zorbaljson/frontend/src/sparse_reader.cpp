// The reader of sparse arrays, which the double, single and logical readers hand their lists to.
#include <frontend/detail/large_format_visitor.hpp>

#include <frontend/detail/json2num.hpp>
#include <frontend/detail/numeric_elements.hpp>
#include <frontend/detail/parse_error.hpp>

#include <foundation/json/json_cast.hpp>
#include <foundation/json/traits.hpp>
#include <foundation/zorbaldata/json/detail/to_zorbaldata_visitor.hpp>

#include <complex>
#include <limits>
#include <stdexcept>
#include <type_traits>
#include <utility>

namespace foundation::zorbaljson::detail {

namespace {

using foundation::json::json_cast;
using foundation::json::Value;
using JsonArray = foundation::json::Array;

// A list other than the numeric kinds' row list is cast with the notation's failure.
JsonArray const& sparse_list(Value const& value)
{
    if (value.which() != foundation::json::traits<JsonArray>::which)
        throw CannotCastToArray();
    return json_cast<JsonArray>(value);
}

// Indices are doubles, truncated toward zero and passed on as they are, whatever the base. A value
// that no unsigned long can hold (NaN too) becomes the largest one, which lies outside every matrix.
unsigned long sparse_index(Value const& value)
{
    double const index = read_floating<double>(value);
    if (!(index > -1.0 && index < 18446744073709551616.0))
        return std::numeric_limits<unsigned long>::max();
    return static_cast<unsigned long>(index);
}

// Complex parts are read as doubles, also for single arrays, which narrow them without a range test.
template <typename F>
std::complex<F> complex_value(JsonArray const& values, unsigned long index)
{
    double const real_part = json2num<double, true, 0>(values[2 * index]);
    double const imaginary_part = json2num<double, true, 0>(values[2 * index + 1]);
    return { static_cast<F>(real_part), static_cast<F>(imaginary_part) };
}

// The buffers exist before the first element is read; the row, column and value of one element are
// read in that order, and any failure among them is reported as incompatible data.
template <typename T, typename B, typename ReadValue>
foundation::zorbaldata::Array fill_sparse(B& backend, std::vector<unsigned long> const& dims,
    JsonArray const& rows, JsonArray const& cols, unsigned long count, ReadValue const& read_value)
{
    auto buffers = backend.template create_sparse_buffers<T>(count);
    for (unsigned long i = 0; i < count; ++i) {
        try {
            unsigned long const row = sparse_index(rows[i]);
            unsigned long const col = sparse_index(cols[i]);
            T const value = read_value(i);
            buffers.rows[i] = row;
            buffers.cols[i] = col;
            buffers.value_data()[i] = value;
        } catch (std::runtime_error const& e) {
            throw InvalidZQDataForSparse(e.what());
        }
    }
    return backend.create_sparse_array(dims, count, std::move(buffers));
}

template <typename B>
foundation::zorbaldata::Array read_logical_sparse(
    B& backend, std::vector<unsigned long> const& dims, JsonArray const& list)
{
    if (list.size() != 2)
        throw InvalidSparseArray();
    JsonArray const& rows = sparse_list(list[0]);
    JsonArray const& cols = sparse_list(list[1]);
    if (cols.size() != rows.size())
        throw MismatchInRowColDataArraySize();
    return fill_sparse<bool>(backend, dims, rows, cols, rows.size(), [](unsigned long) { return true; });
}

// The row list's own cast comes first and unguarded: it gives the count.
template <typename F, typename B>
foundation::zorbaldata::Array read_real_sparse(
    B& backend, std::vector<unsigned long> const& dims, JsonArray const& list)
{
    if (list.size() != 3)
        throw InvalidSparseArray();
    JsonArray const& rows = json_cast<JsonArray>(list[0]);
    unsigned long const count = rows.size();
    JsonArray const& cols = sparse_list(list[1]);
    JsonArray const& values = sparse_list(list[2]);
    if (cols.size() != count || values.size() != count)
        throw MismatchInRowColDataArraySize();
    return fill_sparse<F>(backend, dims, rows, cols, count,
        [&values](unsigned long i) { return json2num<F, true, 0>(values[i]); });
}

// With no elements the column and value lists are not looked at. A value list with one entry more than
// the pairs passes, and that entry is never read.
template <typename F, typename B>
foundation::zorbaldata::Array read_complex_sparse(
    B& backend, std::vector<unsigned long> const& dims, JsonArray const& list)
{
    if (list.size() != 3)
        throw InvalidSparseArray();
    JsonArray const& rows = json_cast<JsonArray>(list[0]);
    unsigned long const count = rows.size();
    if (count == 0)
        return backend.create_sparse_array(
            dims, 0, backend.template create_sparse_buffers<std::complex<F>>(0));
    JsonArray const& cols = sparse_list(list[1]);
    JsonArray const& values = sparse_list(list[2]);
    if (cols.size() != count || values.size() / 2 != count)
        throw MismatchInRowColDataArraySize();
    return fill_sparse<std::complex<F>>(
        backend, dims, rows, cols, count, [&values](unsigned long i) { return complex_value<F>(values, i); });
}

} // namespace

template <typename B>
template <typename T>
foundation::zorbaldata::Array zorbal_json_large_format_visitor<B>::read_sparse(
    foundation::json::Array const& list, bool complex) const
{
    if constexpr (std::is_same_v<T, bool>)
        return read_logical_sparse(*backend_, dims_, list);
    else if (complex)
        return read_complex_sparse<T>(*backend_, dims_, list);
    else
        return read_real_sparse<T>(*backend_, dims_, list);
}

using Visitor = zorbal_json_large_format_visitor<foundation::zorbaldata::json::detail::to_zorbaldata_visitor>;
template foundation::zorbaldata::Array Visitor::read_sparse<float>(
    foundation::json::Array const&, bool) const;
template foundation::zorbaldata::Array Visitor::read_sparse<double>(
    foundation::json::Array const&, bool) const;
template foundation::zorbaldata::Array Visitor::read_sparse<bool>(foundation::json::Array const&, bool) const;

} // namespace foundation::zorbaljson::detail
