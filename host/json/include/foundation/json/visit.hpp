// Calling a visitor with the alternative a Value holds.
#pragma once

#include <foundation/json/json_cast.hpp>
#include <foundation/json/value.hpp>

#include <utility>

namespace foundation::json {

/// Calls visitor with the alternative that value holds, as a const reference of its own type, and
/// returns what the visitor returns. The visitor takes all ten alternatives (overloads or a template),
/// each returning the same type.
template <typename Visitor>
decltype(auto) visit(Visitor&& visitor, Value const& value)
{
    using detail::ValueAccess;
    switch (value.which()) {
    case traits<Null>::which:
        return std::forward<Visitor>(visitor)(ValueAccess::get<Null>(value));
    case traits<bool>::which:
        return std::forward<Visitor>(visitor)(ValueAccess::get<bool>(value));
    case traits<double>::which:
        return std::forward<Visitor>(visitor)(ValueAccess::get<double>(value));
    case traits<std::string>::which:
        return std::forward<Visitor>(visitor)(ValueAccess::get<std::string>(value));
    case traits<Array>::which:
        return std::forward<Visitor>(visitor)(ValueAccess::get<Array>(value));
    case traits<Object>::which:
        return std::forward<Visitor>(visitor)(ValueAccess::get<Object>(value));
    case traits<float>::which:
        return std::forward<Visitor>(visitor)(ValueAccess::get<float>(value));
    case traits<long long>::which:
        return std::forward<Visitor>(visitor)(ValueAccess::get<long long>(value));
    case traits<unsigned long long>::which:
        return std::forward<Visitor>(visitor)(ValueAccess::get<unsigned long long>(value));
    default:
        return std::forward<Visitor>(visitor)(ValueAccess::get<Undefined>(value));
    }
}

} // namespace foundation::json
