// The writer of struct arrays: field values written by the variant, in the large form or as a plain object.
#pragma once

#include <foundation/zorbaldata/json/detail/dimensions.hpp>
#include <foundation/zorbaldata/json/detail/field_walk.hpp>
#include <foundation/zorbaldata/json/detail/large_form.hpp>
#include <foundation/zorbaldata/json/to_json_modes.hpp>
#include <foundation/zorbaldata/struct_array.hpp>

#include <stdexcept>

namespace foundation::zorbaldata::json::detail {

/// Writes the large form of a struct array of the dimensions: zqdata is an object with one key for each
/// field, holding the field's values for all elements in storage order, each written by
/// write(value, out).
/// @throws std::runtime_error "Must have at least two dimensions" for fewer than two dimensions;
/// "Number of elements for field <name> did not match specified dimensions" when a field's values run
/// out before the dimensions' count. @throws what write throws, unchanged.
template <typename Out, typename Write>
void write_struct_large(Out& out, Dimensions const& dimensions, StructArray const& array, Write const& write)
{
    write_large_form(out, dimensions, "struct", {}, [&] {
        unsigned long const count = element_count(dimensions);
        out.begin_object();
        field_walk walk(array);
        for (ZorbalFieldIdentifier const& field : array.getFieldNames()) {
            out.key(field.getString());
            out.begin_array();
            // The walk goes on from field to field, so each field takes the next count values.
            unsigned long written = 0;
            for (; written < count && !walk.at_end(); ++written, walk.advance())
                write(walk.value(), out);
            if (written < count)
                throw std::runtime_error("Number of elements for field " + field.getString()
                    + " did not match specified dimensions");
            out.end_array();
        }
        out.end_object();
    });
}

/// Writes the plain object of a 1-by-1 struct array: field name to the value written by write, with no
/// reserved key added.
/// @throws std::runtime_error "Number of fieldnames does not match number of elements" when the array
/// does not hold one value for each field. @throws what write throws, unchanged.
template <typename Out, typename Write>
void write_plain_object(Out& out, StructArray const& array, Write const& write)
{
    char const* const mismatch = "Number of fieldnames does not match number of elements";
    out.begin_object();
    field_walk walk(array);
    for (ZorbalFieldIdentifier const& field : array.getFieldNames()) {
        if (walk.at_end())
            throw std::runtime_error(mismatch);
        out.key(field.getString());
        write(walk.value(), out);
        walk.advance();
    }
    if (!walk.at_end())
        throw std::runtime_error(mismatch);
    out.end_object();
}

/// Writes a struct array. Under ToJsonMode::Small a 1-by-1 array is its plain object and a 0-by-0 array
/// without fields is {}; every other array takes the large form.
/// @throws as write_struct_large and write_plain_object; under Small, fewer than two dimensions fail
/// before the fields are looked at.
template <zorbaljson::ToJsonMode Mode, typename Out, typename Write>
void write_struct(Out& out, StructArray const& array, Write const& write)
{
    Dimensions const dimensions = array.getDimensions();
    if constexpr (Mode == zorbaljson::ToJsonMode::Small) {
        require_two_dimensions(dimensions);
        if (is_matrix_of(dimensions, 1, 1))
            return write_plain_object(out, array, write);
        if (is_matrix_of(dimensions, 0, 0) && array.getNumberOfFields() == 0) {
            out.begin_object();
            out.end_object();
            return;
        }
    }
    write_struct_large(out, dimensions, array, write);
}

} // namespace foundation::zorbaldata::json::detail
