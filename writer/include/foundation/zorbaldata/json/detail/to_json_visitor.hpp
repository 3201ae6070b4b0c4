// The writers of one variant, chosen by the typed view of the array.
#pragma once

#include <foundation/zorbaldata/char_array.hpp>
#include <foundation/zorbaldata/element_types.hpp>
#include <foundation/zorbaldata/enum_array.hpp>
#include <foundation/zorbaldata/handle_object.hpp>
#include <foundation/zorbaldata/json/detail/cell_writer.hpp>
#include <foundation/zorbaldata/json/detail/char_writer.hpp>
#include <foundation/zorbaldata/json/detail/element_values.hpp>
#include <foundation/zorbaldata/json/detail/enum_writer.hpp>
#include <foundation/zorbaldata/json/detail/numeric_writer.hpp>
#include <foundation/zorbaldata/json/detail/object_writer.hpp>
#include <foundation/zorbaldata/json/detail/sparse_writer.hpp>
#include <foundation/zorbaldata/json/detail/string_writer.hpp>
#include <foundation/zorbaldata/json/detail/struct_writer.hpp>
#include <foundation/zorbaldata/json/detail/to_json.hpp>
#include <foundation/zorbaldata/json/to_json_modes.hpp>
#include <foundation/zorbaldata/object_filter.hpp>
#include <foundation/zorbaldata/sparse_array.hpp>
#include <foundation/zorbaldata/struct_array.hpp>
#include <foundation/zorbaldata/typed_array.hpp>
#include <foundation/zorbaldata/value_object_array.hpp>
#include <zorbal/data/optional.hpp>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace foundation::zorbaldata::json::detail {

/// The overloads that write each view to out in the variant of Mode, Nan and Filter. Nan reaches only
/// double and single elements; every writer that holds arrays hands them to the same variant.
template <zorbaljson::ToJsonMode Mode, zorbaljson::NanType Nan, ObjectFilter Filter, typename Out>
struct to_json_visitor {
    Out& out;

    /// How the writers of cells, structs and objects write the arrays they hold.
    static void write_element(Array element, Out& element_out)
    {
        write_array<Mode, Nan, Filter>(std::move(element), element_out);
    }

    void operator()(TypedArray<double> const& array) const
    {
        write_with_small_form<Mode>(out, array.getDimensions(), getReadOnlyElements<double>(array),
            floating_value<zorbaljson::NanType::Object>(), floating_value<Nan>());
    }

    void operator()(TypedArray<bool> const& array) const
    {
        write_with_small_form<Mode>(
            out, array.getDimensions(), getReadOnlyElements<bool>(array), exact_value(), exact_value());
    }

    /// Single, integer and complex arrays, which have no small form.
    template <zorbaldata::detail::Plain T>
    void operator()(TypedArray<T> const& array) const
    {
        write_numeric(out, array.getDimensions(), getReadOnlyElements<T>(array), value_maker<T, Nan>());
    }

    void operator()(CharArray const& array) const
    {
        // The code units are read where they lie, without the copy that CharArray::toUTF16 makes.
        auto const units = getReadOnlyElements<char16_t>(array);
        std::u16string_view const text(
            std::to_address(units.begin()), static_cast<std::size_t>(units.end() - units.begin()));
        write_char<Mode>(out, array.getDimensions(), text);
    }

    void operator()(TypedArray<zorbal::data::optional<std::u16string>> const& array) const
    {
        write_string(out, array.getDimensions(),
            getReadOnlyElements<zorbal::data::optional<std::u16string>>(array));
    }

    void operator()(TypedArray<Array> const& array) const
    {
        write_cell(out, array.getDimensions(), getReadOnlyElements<Array>(array), write_element);
    }

    void operator()(StructArray const& array) const
    {
        write_struct<Mode>(out, array, write_element);
    }

    void operator()(EnumArray const& array) const
    {
        write_enum(out, array.getDimensions(), array.getClassName(), getReadOnlyElements<Enumeration>(array));
    }

    template <typename T>
    void operator()(SparseArray<T> const& array) const
    {
        write_sparse(out, array.getDimensions(), array.getRows(), array.getCols(),
            Range<TypedIterator, T const>(array.begin(), array.end()), value_maker<T, Nan>());
    }

    void operator()(ValueObjectArray const& array) const
    {
        write_value_objects(out, array, Filter, write_element);
    }

    void operator()(TypedArray<HandleObjectRef> const& array) const
    {
        write_handles(out, array, Filter, write_element);
    }
};

} // namespace foundation::zorbaldata::json::detail
