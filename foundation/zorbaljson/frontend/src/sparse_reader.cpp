// The reader of sparse arrays, which the double, single and logical readers hand their lists to.
#include <frontend/detail/large_format_visitor.hpp>

#include <frontend/detail/numeric_elements.hpp>
#include <frontend/detail/parse_error.hpp>

#include <foundation/zorbaldata/json/detail/to_zorbaldata_visitor.hpp>

#include <complex>
#include <limits>
#include <stdexcept>
#include <type_traits>
#include <utility>

namespace foundation::zorbaljson::detail {

namespace {

// A list other than the numeric kinds' row list is cast with the notation's failure.
JsonNode sparse_list(JsonNode value)
{
    if (!value.is(json_kind::array))
        throw CannotCastToArray();
    return value;
}

// Indices are doubles, truncated toward zero and passed on as they are, whatever the base. A value
// that no unsigned long can hold (NaN too) becomes the largest one, which lies outside every matrix.
unsigned long sparse_index(JsonNode value)
{
    double const index = read_floating<double>(value);
    if (!(index > -1.0 && index < 18446744073709551616.0))
        return std::numeric_limits<unsigned long>::max();
    return static_cast<unsigned long>(index);
}

// Complex parts are read as doubles, also for single arrays, which narrow them without a range test.
template <typename F>
std::complex<F> complex_value(ElementCursor& values)
{
    double const real_part = numeric_element<double>(*values);
    ++values;
    double const imaginary_part = numeric_element<double>(*values);
    ++values;
    return { static_cast<F>(real_part), static_cast<F>(imaginary_part) };
}

// The buffers exist before the first element is read; the row, column and value of one element are
// read in that order, and any failure among them is reported as incompatible data.
template <typename T, typename B, typename ReadValue>
foundation::zorbaldata::Array fill_sparse(B& backend, std::vector<unsigned long> const& dims,
    JsonNode rows, JsonNode cols, unsigned long count, ReadValue const& read_value)
{
    auto buffers = backend.template create_sparse_buffers<T>(count);
    ElementCursor row_entry = rows.begin();
    ElementCursor col_entry = cols.begin();
    for (unsigned long i = 0; i < count; ++i, ++row_entry, ++col_entry) {
        try {
            unsigned long const row = sparse_index(*row_entry);
            unsigned long const col = sparse_index(*col_entry);
            T const value = read_value();
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
    B& backend, std::vector<unsigned long> const& dims, JsonNode list)
{
    if (list.size() != 2)
        throw InvalidSparseArray();
    JsonNode const rows = sparse_list(element_at(list, 0));
    JsonNode const cols = sparse_list(element_at(list, 1));
    if (cols.size() != rows.size())
        throw MismatchInRowColDataArraySize();
    return fill_sparse<bool>(backend, dims, rows, cols, rows.size(), [] { return true; });
}

// The row list's own cast comes first and unguarded: it gives the count.
template <typename F, typename B>
foundation::zorbaldata::Array read_real_sparse(
    B& backend, std::vector<unsigned long> const& dims, JsonNode list)
{
    if (list.size() != 3)
        throw InvalidSparseArray();
    JsonNode const rows = element_at(list, 0);
    rows.expect(json_kind::array);
    unsigned long const count = rows.size();
    JsonNode const cols = sparse_list(element_at(list, 1));
    JsonNode const values = sparse_list(element_at(list, 2));
    if (cols.size() != count || values.size() != count)
        throw MismatchInRowColDataArraySize();
    ElementCursor value = values.begin();
    return fill_sparse<F>(backend, dims, rows, cols, count, [&value] {
        F const element = numeric_element<F>(*value);
        ++value;
        return element;
    });
}

// With no elements the column and value lists are not looked at. A value list with one entry more than
// the pairs passes, and that entry is never read.
template <typename F, typename B>
foundation::zorbaldata::Array read_complex_sparse(
    B& backend, std::vector<unsigned long> const& dims, JsonNode list)
{
    if (list.size() != 3)
        throw InvalidSparseArray();
    JsonNode const rows = element_at(list, 0);
    rows.expect(json_kind::array);
    unsigned long const count = rows.size();
    if (count == 0)
        return backend.create_sparse_array(
            dims, 0, backend.template create_sparse_buffers<std::complex<F>>(0));
    JsonNode const cols = sparse_list(element_at(list, 1));
    JsonNode const values = sparse_list(element_at(list, 2));
    if (cols.size() != count || values.size() / 2 != count)
        throw MismatchInRowColDataArraySize();
    ElementCursor value = values.begin();
    return fill_sparse<std::complex<F>>(
        backend, dims, rows, cols, count, [&value] { return complex_value<F>(value); });
}

} // namespace

template <typename B>
template <typename T>
foundation::zorbaldata::Array zorbal_json_large_format_visitor<B>::read_sparse(
    JsonNode list, bool complex) const
{
    if constexpr (std::is_same_v<T, bool>)
        return read_logical_sparse(*backend_, dims_, list);
    else if (complex)
        return read_complex_sparse<T>(*backend_, dims_, list);
    else
        return read_real_sparse<T>(*backend_, dims_, list);
}

using Backend = foundation::zorbaldata::json::detail::to_zorbaldata_visitor;
template foundation::zorbaldata::Array zorbal_json_large_format_visitor<Backend>::read_sparse<float>(JsonNode, bool) const;
template foundation::zorbaldata::Array zorbal_json_large_format_visitor<Backend>::read_sparse<double>(JsonNode, bool) const;
template foundation::zorbaldata::Array zorbal_json_large_format_visitor<Backend>::read_sparse<bool>(JsonNode, bool) const;

} // namespace foundation::zorbaljson::detail
