// The reader of logical arrays.
#include <frontend/detail/large_format_visitor.hpp>

#include <frontend/detail/converting_iterator.hpp>
#include <frontend/detail/notation_keys.hpp>
#include <frontend/detail/parse_error.hpp>
#include <frontend/detail/property_readers.hpp>
#include <frontend/detail/read_data.hpp>

#include <foundation/zorbaldata/json/detail/to_zorbaldata_visitor.hpp>

namespace foundation::zorbaljson::detail {

namespace {

// Numbers are no booleans, not even 0 and 1.
bool logical_element(JsonNode value)
{
    if (!value.is(json_kind::boolean))
        throw InvalidLogicalElem();
    return value.as_bool();
}

} // namespace

template <typename B>
foundation::zorbaldata::Array zorbal_json_large_format_visitor<B>::operator()(
    ZorbalTypeTag<ZorbalLogical>) const
{
    JsonNode const list = read_data_array(data_, ZorbalTypeTraits<ZorbalLogical>::name);
    if (read_flag(object_, zqsparse_key))
        return read_sparse<bool>(list, false);
    ElementConverter<bool> const convert(&logical_element);
    auto const [begin, end] = converting_range(list, convert);
    return backend_->create_real_array(dims_, begin, end);
}

using Backend = foundation::zorbaldata::json::detail::to_zorbaldata_visitor;
template foundation::zorbaldata::Array zorbal_json_large_format_visitor<Backend>::operator()(ZorbalTypeTag<ZorbalLogical>) const;

} // namespace foundation::zorbaljson::detail
