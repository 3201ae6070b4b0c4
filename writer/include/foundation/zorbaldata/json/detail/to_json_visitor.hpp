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
#include <foundation/zorbaldata/json/detail/json_types.hpp>
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

namespace foundation::zorbaldata::json::detail {

/// The overloads that write each view in the variant of Mode, Nan and Filter. Nan reaches only double and
/// single elements; every writer that holds arrays hands them to to_json of the same variant.
template <zorbaljson::ToJsonMode Mode, zorbaljson::NanType Nan, ObjectFilter Filter>
struct to_json_visitor {
    JsonValue operator()(TypedArray<double> const& array) const
    {
        return write_with_small_form<Mode>(array.getDimensions(), getReadOnlyElements<double>(array),
            floating_value<zorbaljson::NanType::Object>(), floating_value<Nan>());
    }

    JsonValue operator()(TypedArray<bool> const& array) const
    {
        return write_with_small_form<Mode>(
            array.getDimensions(), getReadOnlyElements<bool>(array), exact_value(), exact_value());
    }

    /// Single, integer and complex arrays, which have no small form.
    template <zorbaldata::detail::Plain T>
    JsonValue operator()(TypedArray<T> const& array) const
    {
        return write_numeric(array.getDimensions(), getReadOnlyElements<T>(array), value_maker<T, Nan>());
    }

    JsonValue operator()(CharArray const& array) const
    {
        // The code units are read where they lie, without the copy that CharArray::toUTF16 makes.
        auto const units = getReadOnlyElements<char16_t>(array);
        std::u16string_view const text(
            std::to_address(units.begin()), static_cast<std::size_t>(units.end() - units.begin()));
        return write_char<Mode>(array.getDimensions(), text);
    }

    JsonValue operator()(TypedArray<zorbal::data::optional<std::u16string>> const& array) const
    {
        return write_string(array.getDimensions(),
            getReadOnlyElements<zorbal::data::optional<std::u16string>>(array));
    }

    JsonValue operator()(TypedArray<Array> const& array) const
    {
        auto const elements = getReadOnlyElements<Array>(array);
        return write_cell(array.getDimensions(), elements, to_json<Mode, Nan, Filter>);
    }

    JsonValue operator()(StructArray const& array) const
    {
        return write_struct<Mode>(array, to_json<Mode, Nan, Filter>);
    }

    JsonValue operator()(EnumArray const& array) const
    {
        auto const elements = getReadOnlyElements<Enumeration>(array);
        return write_enum(array.getDimensions(), array.getClassName(), elements);
    }

    template <typename T>
    JsonValue operator()(SparseArray<T> const& array) const
    {
        return write_sparse(array.getDimensions(), array.getRows(), array.getCols(),
            Range<TypedIterator, T const>(array.begin(), array.end()), value_maker<T, Nan>());
    }

    JsonValue operator()(ValueObjectArray const& array) const
    {
        return write_value_objects(array, Filter, to_json<Mode, Nan, Filter>);
    }

    JsonValue operator()(TypedArray<HandleObjectRef> const& array) const
    {
        return write_handles(array, Filter, to_json<Mode, Nan, Filter>);
    }
};

} // namespace foundation::zorbaldata::json::detail
