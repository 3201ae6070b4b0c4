// From an array to a JSON value tree or to JSON text.
#pragma once

#include <foundation/json/value.hpp>
#include <foundation/zorbaldata/array.hpp>
#include <foundation/zorbaldata/json/export.hpp>
#include <foundation/zorbaldata/json/to_json_modes.hpp>
#include <foundation/zorbaldata/object_filter.hpp>

#include <string>

namespace foundation::zorbaldata::json {

/// The JSON tree of array in the notation: the large form {"zqdata":...,"zqsize":...,"zqtype":...} for
/// every kind, or under ToJsonMode::Small the small forms of double, logical, char and struct arrays
/// where their size allows. What the array contains is written under the same three settings. filter
/// goes to detail::validateObjectTypeFilter for each object array. A combination of settings outside
/// the enumerators gives an Undefined value, without reading the array.
/// @throws std::runtime_error "Must have at least two dimensions" for an array, or one it contains, of
/// fewer than two dimensions; "Number of elements did not match specified dimensions" when an array's
/// elements disagree with its dimensions. The object writers have their own failures: see
/// detail/object_writer.hpp.
/// @throws ArrayNestingTooDeep for arrays holding arrays more than 1000 levels deep, array included,
/// wherever they stand.
/// @throws foundation::zorbaldata::EArrayUnknownDataType for an array whose type is no ArrayType.
/// @throws yx::i18n::CvtInvalidCharacter for text that cannot be written as UTF-8 even with surrogates.
FOUNDATION_ZORBALDATA_JSON_API foundation::json::Value zorbaldata_to_json(Array array,
    foundation::zorbaljson::ToJsonMode mode, foundation::zorbaljson::NanType nanType, ObjectFilter filter);

/// The compact JSON text of zorbaldata_to_json(array, mode, nanType, filter); "null" for a combination
/// of settings outside the enumerators.
/// The text is written straight from the array, without a tree, and is the same to the byte. When
/// anything fails, nothing is returned but the exception.
/// @throws what zorbaldata_to_json throws; std::length_error when the text would be longer than
/// std::string's max_size().
FOUNDATION_ZORBALDATA_JSON_API std::string zorbaldata_to_string(Array array,
    foundation::zorbaljson::ToJsonMode mode, foundation::zorbaljson::NanType nanType, ObjectFilter filter);

/// The same text indented as foundation::json::serialize(value, indent) indents it: each element and
/// member on a line of its own, indent spaces a level; an indent of 0 is the compact text.
/// @throws as the compact zorbaldata_to_string.
FOUNDATION_ZORBALDATA_JSON_API std::string zorbaldata_to_string(Array array,
    foundation::zorbaljson::ToJsonMode mode, foundation::zorbaljson::NanType nanType, ObjectFilter filter,
    unsigned indent);

} // namespace foundation::zorbaldata::json
