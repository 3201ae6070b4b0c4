// The entry from a JSON value tree to an array.
#include <foundation/zorbaldata/json/json_to_zorbaldata.hpp>

#include <foundation/zorbaldata/json/convert_error.hpp>
#include <foundation/zorbaldata/json/detail/convert_document.hpp>
#include <foundation/zorbaldata/json/detail/to_zorbaldata_visitor.hpp>
#include <frontend/detail/json_value_to_zorbal_visitor.hpp>

namespace foundation::zorbaljson::detail {
template class json_value_to_zorbal_visitor<foundation::zorbaldata::json::detail::to_zorbaldata_visitor>;
} // namespace foundation::zorbaljson::detail

namespace foundation::zorbaldata::json {

namespace detail {

Array convert_document(foundation::zorbaljson::detail::JsonNode root, ArrayFactory& factory)
{
    namespace kind = foundation::zorbaljson::detail::json_kind;
    // Tested before anything else, so that the factory is not touched.
    if (root.is(kind::undefined) || root.is(kind::null))
        throw InvalidInputJSONValue();
    to_zorbaldata_visitor backend(factory);
    return foundation::zorbaljson::detail::json_value_to_zorbal_visitor(backend)(root);
}

} // namespace detail

Array json_to_zorbaldata(foundation::json::Value const& value, ArrayFactory& factory)
{
    return detail::convert_document(foundation::zorbaljson::detail::JsonNode(value), factory);
}

} // namespace foundation::zorbaldata::json
