// The writer of sparse arrays: coordinate lists in the large form, under both values of ToJsonMode.
#pragma once

#include <foundation/zorbaldata/element_types.hpp>
#include <foundation/zorbaldata/json/detail/dimensions.hpp>
#include <foundation/zorbaldata/json/detail/json_types.hpp>
#include <foundation/zorbaldata/json/detail/large_form.hpp>
#include <foundation/zorbaldata/json/detail/numeric_traits.hpp>
#include <foundation/zorbaldata/json/detail/writer_errors.hpp>
#include <foundation/zorbaldata/range.hpp>
#include <foundation/zorbaldata/typed_iterator.hpp>
#include <frontend/detail/notation_keys.hpp>

#include <span>
#include <type_traits>
#include <utility>

namespace foundation::zorbaldata::json::detail {

/// The large form of a sparse array of the dimensions whose non-zero elements, of type T, are values,
/// the i-th at row rows[i] and column cols[i]. zqdata is [rows,columns,values], or [rows,columns] for a
/// logical array, whose stored elements are all true; rows and columns pass unchanged as unsigned
/// integers, and make turns each value, or each part of a complex value, into JSON.
/// @throws std::runtime_error "Must have at least two dimensions" for fewer than two dimensions;
/// "Number of elements did not match specified dimensions" when values, rows and cols differ in length.
template <typename T, typename MakeValue>
JsonValue write_sparse(Dimensions const& dimensions, std::span<unsigned long const> rows,
    std::span<unsigned long const> cols, Range<TypedIterator, T const> const& values,
    [[maybe_unused]] MakeValue make)
{
    constexpr bool logical = std::is_same_v<T, bool>;
    constexpr bool complex = zorbaldata::detail::isComplex<T>;
    large_form form(dimensions, zqtype_of<T>::name);
    form.set_flag(zorbaljson::detail::zqsparse_key);
    if constexpr (complex)
        form.set_flag(zorbaljson::detail::zqcomplex_key);

    unsigned long const non_zeros = rows.size();
    auto const first = values.begin();
    // Rows and columns are read at the index of each value, so the three must agree before the walk.
    if (static_cast<unsigned long>(values.end() - first) != non_zeros || cols.size() != non_zeros)
        throw_count_mismatch();
    JsonArray row_list;
    JsonArray col_list;
    JsonArray value_list;
    row_list.reserve(non_zeros);
    col_list.reserve(non_zeros);
    if constexpr (!logical)
        value_list.reserve(complex ? 2 * non_zeros : non_zeros);
    for (unsigned long i = 0; i < non_zeros; ++i) {
        row_list.emplace_back(static_cast<unsigned long long>(rows[i]));
        col_list.emplace_back(static_cast<unsigned long long>(cols[i]));
        if constexpr (complex) {
            value_list.push_back(make(first[i].real()));
            value_list.push_back(make(first[i].imag()));
        } else if constexpr (!logical) {
            value_list.push_back(make(first[i]));
        }
    }

    JsonArray data;
    data.reserve(logical ? 2 : 3);
    data.emplace_back(std::move(row_list));
    data.emplace_back(std::move(col_list));
    if constexpr (!logical)
        data.emplace_back(std::move(value_list));
    return std::move(form).finish(JsonValue(std::move(data)));
}

} // namespace foundation::zorbaldata::json::detail
