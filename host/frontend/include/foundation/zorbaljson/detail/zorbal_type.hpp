// The kinds of array that the notation's "zqtype" can name, and the lookup from a name to a kind.
#pragma once

#include <foundation/zorbaljson/export.hpp>

#include <string>

namespace foundation::zorbaljson::detail {

/// The array kinds of the notation. The values are fixed: dispatch over them is by value.
/// Kinds 14, 15 and 17 have no name of their own; a class name in "zqtype" selects them.
enum ZorbalType : int {
    ZorbalInt8 = 0,
    ZorbalInt16 = 1,
    ZorbalInt32 = 2,
    ZorbalInt64 = 3,
    ZorbalUInt8 = 4,
    ZorbalUInt16 = 5,
    ZorbalUInt32 = 6,
    ZorbalUInt64 = 7,
    ZorbalSingle = 8,
    ZorbalDouble = 9,
    ZorbalLogical = 10,
    ZorbalChar = 11,
    ZorbalCell = 12,
    ZorbalStruct = 13,
    ZorbalValueObject = 14,
    ZorbalEnum = 15,
    ZorbalString = 16,
    ZorbalHandleObject = 17,
};

/// The kind named by a "zqtype" value: one of "int8", "int16", "int32", "int64", "uint8", "uint16",
/// "uint32", "uint64", "single", "double", "logical", "char", "cell", "struct", "string".
/// Spelling is exact; no other name is a type name.
/// @throws std::invalid_argument with "Unknown zqtype name: " and the name, for any other name
FOUNDATION_ZORBALJSON_FRONTEND_API ZorbalType zorbal_type_for_name(std::string const& name);

} // namespace foundation::zorbaljson::detail
