// The array kinds of the notation as compile-time tags, and the one dispatch from a kind to its reader.
#pragma once

#include <foundation/zorbaljson/detail/zorbal_type.hpp>

#include <boost/assert/source_location.hpp>
#include <boost/throw_exception.hpp>

#include <stdexcept>
#include <type_traits>
#include <utility>

namespace foundation::zorbaljson::detail {

/// Selects the reader of one kind at compile time.
template <ZorbalType Type>
using ZorbalTypeTag = std::integral_constant<ZorbalType, Type>;

/// Whether the elements of the kind are numbers, real or complex: the kinds int8 to double.
constexpr bool is_numeric_zorbal_type(ZorbalType type) noexcept
{
    return type >= ZorbalInt8 && type <= ZorbalDouble;
}

/// The tags of the ten numeric kinds.
template <typename Tag>
concept NumericZorbalTypeTag = is_numeric_zorbal_type(Tag::value);

/// What a kind is called in "zqtype" and in messages (`name`), and the element type of its arrays
/// (`element_type`) where it has one of its own.
template <ZorbalType Type>
struct ZorbalTypeTraits;

template <>
struct ZorbalTypeTraits<ZorbalInt8> {
    using element_type = signed char;
    static constexpr char const* name = "int8";
};
template <>
struct ZorbalTypeTraits<ZorbalInt16> {
    using element_type = short;
    static constexpr char const* name = "int16";
};
template <>
struct ZorbalTypeTraits<ZorbalInt32> {
    using element_type = int;
    static constexpr char const* name = "int32";
};
template <>
struct ZorbalTypeTraits<ZorbalInt64> {
    using element_type = long long;
    static constexpr char const* name = "int64";
};
template <>
struct ZorbalTypeTraits<ZorbalUInt8> {
    using element_type = unsigned char;
    static constexpr char const* name = "uint8";
};
template <>
struct ZorbalTypeTraits<ZorbalUInt16> {
    using element_type = unsigned short;
    static constexpr char const* name = "uint16";
};
template <>
struct ZorbalTypeTraits<ZorbalUInt32> {
    using element_type = unsigned int;
    static constexpr char const* name = "uint32";
};
template <>
struct ZorbalTypeTraits<ZorbalUInt64> {
    using element_type = unsigned long long;
    static constexpr char const* name = "uint64";
};
template <>
struct ZorbalTypeTraits<ZorbalSingle> {
    using element_type = float;
    static constexpr char const* name = "single";
};
template <>
struct ZorbalTypeTraits<ZorbalDouble> {
    using element_type = double;
    static constexpr char const* name = "double";
};
template <>
struct ZorbalTypeTraits<ZorbalLogical> {
    using element_type = bool;
    static constexpr char const* name = "logical";
};
template <>
struct ZorbalTypeTraits<ZorbalChar> {
    using element_type = char16_t;
    static constexpr char const* name = "char";
};
template <>
struct ZorbalTypeTraits<ZorbalCell> {
    static constexpr char const* name = "cell";
};
template <>
struct ZorbalTypeTraits<ZorbalStruct> {
    static constexpr char const* name = "struct";
};
template <>
struct ZorbalTypeTraits<ZorbalEnum> {
    static constexpr char const* name = "enum";
};
template <>
struct ZorbalTypeTraits<ZorbalString> {
    static constexpr char const* name = "string";
};

namespace types_detail {

template <typename T, int... Kinds>
constexpr ZorbalType numeric_kind_of(std::integer_sequence<int, Kinds...>)
{
    ZorbalType kind = ZorbalInt8;
    ((std::is_same_v<T, typename ZorbalTypeTraits<ZorbalType(Kinds)>::element_type>
             ? (kind = ZorbalType(Kinds))
             : kind),
        ...);
    return kind;
}

} // namespace types_detail

/// The numeric kind whose elements are T, for the ten numeric element types.
template <typename T>
inline constexpr ZorbalType numeric_kind_of
    = types_detail::numeric_kind_of<T>(std::make_integer_sequence<int, ZorbalDouble + 1>());

/// Calls the overload of visitor for type: `visitor(ZorbalTypeTag<type>())` for every kind but the two
/// object kinds, which go to `visitor.object_helper(false)` (value objects) and
/// `visitor.object_helper(true)` (handle objects). Returns what the overload returns.
/// @throws boost::wrapexcept<std::runtime_error> "invalid ZorbalType" for a value outside the
/// enumeration, carrying this file and function as the place of the throw.
template <typename Visitor>
auto dispatch_on_ZorbalType(ZorbalType type, Visitor const& visitor)
{
    switch (type) {
    case ZorbalInt8: return visitor(ZorbalTypeTag<ZorbalInt8>());
    case ZorbalInt16: return visitor(ZorbalTypeTag<ZorbalInt16>());
    case ZorbalInt32: return visitor(ZorbalTypeTag<ZorbalInt32>());
    case ZorbalInt64: return visitor(ZorbalTypeTag<ZorbalInt64>());
    case ZorbalUInt8: return visitor(ZorbalTypeTag<ZorbalUInt8>());
    case ZorbalUInt16: return visitor(ZorbalTypeTag<ZorbalUInt16>());
    case ZorbalUInt32: return visitor(ZorbalTypeTag<ZorbalUInt32>());
    case ZorbalUInt64: return visitor(ZorbalTypeTag<ZorbalUInt64>());
    case ZorbalSingle: return visitor(ZorbalTypeTag<ZorbalSingle>());
    case ZorbalDouble: return visitor(ZorbalTypeTag<ZorbalDouble>());
    case ZorbalLogical: return visitor(ZorbalTypeTag<ZorbalLogical>());
    case ZorbalChar: return visitor(ZorbalTypeTag<ZorbalChar>());
    case ZorbalCell: return visitor(ZorbalTypeTag<ZorbalCell>());
    case ZorbalStruct: return visitor(ZorbalTypeTag<ZorbalStruct>());
    case ZorbalValueObject: return visitor.object_helper(false);
    case ZorbalEnum: return visitor(ZorbalTypeTag<ZorbalEnum>());
    case ZorbalString: return visitor(ZorbalTypeTag<ZorbalString>());
    case ZorbalHandleObject: return visitor.object_helper(true);
    }
    // The notation cannot produce another value; this guards the enumeration against a bad cast.
    boost::throw_exception(std::runtime_error("invalid ZorbalType"),
        boost::source_location("foundation/zorbaljson/frontend/export/include/frontend/detail/types",
            __LINE__, "dispatch_on_ZorbalType"));
}

} // namespace foundation::zorbaljson::detail
