// The lookup from a "zqtype" name to its array kind.
#include <foundation/zorbaljson/detail/zorbal_type.hpp>

#include <array>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace foundation::zorbaljson::detail {

namespace {

constexpr std::array<std::pair<std::string_view, ZorbalType>, 15> type_names { {
    { "int8", ZorbalInt8 },
    { "int16", ZorbalInt16 },
    { "int32", ZorbalInt32 },
    { "int64", ZorbalInt64 },
    { "uint8", ZorbalUInt8 },
    { "uint16", ZorbalUInt16 },
    { "uint32", ZorbalUInt32 },
    { "uint64", ZorbalUInt64 },
    { "single", ZorbalSingle },
    { "double", ZorbalDouble },
    { "logical", ZorbalLogical },
    { "char", ZorbalChar },
    { "cell", ZorbalCell },
    { "struct", ZorbalStruct },
    { "string", ZorbalString },
} };

} // namespace

ZorbalType zorbal_type_for_name(std::string const& name)
{
    for (auto const& [type_name, type] : type_names)
        if (type_name == name)
            return type;
    throw std::invalid_argument("Unknown zqtype name: " + name);
}

} // namespace foundation::zorbaljson::detail
