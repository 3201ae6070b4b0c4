// The writer of struct arrays: field values written by the variant, in the large form or as a plain object.
#pragma once

#include <foundation/zorbaldata/json/detail/dimensions.hpp>
#include <foundation/zorbaldata/json/detail/json_types.hpp>
#include <foundation/zorbaldata/json/detail/to_json.hpp>
#include <foundation/zorbaldata/json/to_json_modes.hpp>
#include <foundation/zorbaldata/struct_array.hpp>


namespace foundation::zorbaldata::json::detail {

/// The large form of a struct array of the dimensions: zqdata is an object with one key for each field,
/// holding the field's values for all elements in storage order, each written by write.
/// @throws std::runtime_error "Must have at least two dimensions" for fewer than two dimensions;
/// "Number of elements for field <name> did not match specified dimensions" when a field's values run
/// out before the dimensions' count. @throws what write throws, unchanged.
JsonValue write_struct_large(Dimensions const& dimensions, StructArray const& array, element_writer write);

/// The plain object of a 1-by-1 struct array: field name to the value written by write, with no
/// reserved key added.
/// @throws std::runtime_error "Number of fieldnames does not match number of elements" when the array
/// does not hold one value for each field. @throws what write throws, unchanged.
JsonValue write_plain_object(StructArray const& array, element_writer write);

/// A struct array. Under ToJsonMode::Small a 1-by-1 array is its plain object and a 0-by-0 array without
/// fields is {}; every other array takes the large form.
/// @throws as write_struct_large and write_plain_object; under Small, fewer than two dimensions fail
/// before the fields are looked at.
template <zorbaljson::ToJsonMode Mode>
JsonValue write_struct(StructArray const& array, element_writer write)
{
    Dimensions const dimensions = array.getDimensions();
    if constexpr (Mode == zorbaljson::ToJsonMode::Small) {
        require_two_dimensions(dimensions);
        if (is_matrix_of(dimensions, 1, 1))
            return write_plain_object(array, write);
        if (is_matrix_of(dimensions, 0, 0) && array.getNumberOfFields() == 0)
            return JsonValue(JsonObject());
    }
    return write_struct_large(dimensions, array, write);
}

} // namespace foundation::zorbaldata::json::detail
