// The writer of sparse arrays: coordinate lists in the large form, under both values of ToJsonMode.
#pragma once

#include <foundation/zorbaldata/element_types.hpp>
#include <foundation/zorbaldata/json/detail/dimensions.hpp>
#include <foundation/zorbaldata/json/detail/large_form.hpp>
#include <foundation/zorbaldata/json/detail/numeric_traits.hpp>
#include <foundation/zorbaldata/json/detail/writer_errors.hpp>
#include <foundation/zorbaldata/range.hpp>
#include <foundation/zorbaldata/typed_iterator.hpp>

#include <initializer_list>
#include <span>
#include <type_traits>

namespace foundation::zorbaldata::json::detail {

/// Writes the large form of a sparse array of the dimensions whose non-zero elements, of type T, are
/// values, the i-th at row rows[i] and column cols[i]. zqdata is [rows,columns,values], or [rows,columns]
/// for a logical array, whose stored elements are all true; rows and columns pass unchanged as unsigned
/// integers, and make writes each value, or each part of a complex value.
/// @throws std::runtime_error "Must have at least two dimensions" for fewer than two dimensions;
/// "Number of elements did not match specified dimensions" when values, rows and cols differ in length.
template <typename Out, typename T, typename MakeValue>
void write_sparse(Out& out, Dimensions const& dimensions, std::span<unsigned long const> rows,
    std::span<unsigned long const> cols, Range<TypedIterator, T const> const& values,
    [[maybe_unused]] MakeValue make)
{
    constexpr bool logical = std::is_same_v<T, bool>;
    constexpr bool complex = zorbaldata::detail::isComplex<T>;
    require_two_dimensions(dimensions);
    unsigned long const non_zeros = rows.size();
    auto const first = values.begin();
    // Rows and columns are read at the index of each value, so the three must agree before the walk.
    if (static_cast<unsigned long>(values.end() - first) != non_zeros || cols.size() != non_zeros)
        throw_count_mismatch();
    write_large_form(out, dimensions, zqtype_of<T>::name, {.complex = complex, .sparse = true}, [&] {
        out.begin_array();
        for (std::span<unsigned long const> const indices : {rows, cols}) {
            out.begin_array();
            for (unsigned long const index : indices)
                out.value(static_cast<unsigned long long>(index));
            out.end_array();
        }
        if constexpr (!logical) {
            out.begin_array();
            for (unsigned long i = 0; i < non_zeros; ++i) {
                if constexpr (complex) {
                    make(out, first[i].real());
                    make(out, first[i].imag());
                } else {
                    make(out, first[i]);
                }
            }
            out.end_array();
        }
        out.end_array();
    });
}

} // namespace foundation::zorbaldata::json::detail
