// The entry from a JSON value tree to an array.
#include <foundation/zorbaldata/json/json_to_zorbaldata.hpp>

#include <foundation/json/traits.hpp>
#include <foundation/zorbaldata/json/convert_error.hpp>
#include <foundation/zorbaldata/json/detail/to_zorbaldata_visitor.hpp>
#include <frontend/detail/json_value_to_zorbal_visitor.hpp>

namespace foundation::zorbaljson::detail {
template class json_value_to_zorbal_visitor<foundation::zorbaldata::json::detail::to_zorbaldata_visitor>;
} // namespace foundation::zorbaljson::detail

namespace foundation::zorbaldata::json {

Array json_to_zorbaldata(foundation::json::Value const& value, ArrayFactory& factory)
{
    // Tested before anything else, so that the factory is not touched.
    if (value.which() == foundation::json::traits<foundation::json::Undefined>::which
        || value.which() == foundation::json::traits<foundation::json::Null>::which)
        throw InvalidInputJSONValue();
    detail::to_zorbaldata_visitor backend(factory);
    return foundation::zorbaljson::detail::json_value_to_zorbal_visitor(backend)(value);
}

} // namespace foundation::zorbaldata::json
