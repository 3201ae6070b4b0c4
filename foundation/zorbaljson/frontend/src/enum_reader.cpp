// The reader of enumeration arrays: the class name in "zqtype", a member name for each element.
#include <frontend/detail/large_format_visitor.hpp>

#include <frontend/detail/converting_iterator.hpp>
#include <frontend/detail/notation_keys.hpp>
#include <frontend/detail/read_data.hpp>

#include <foundation/zorbaldata/json/detail/to_zorbaldata_visitor.hpp>

#include <string>
#include <string_view>

namespace foundation::zorbaljson::detail {

namespace {

// Names are not tested against the class, which the reader does not know. The kind was chosen by the
// first entry alone, so a later entry may still be no string and fail in the cast.
std::string_view member_name(JsonNode value)
{
    return value.as_string();
}

} // namespace

template <typename B>
foundation::zorbaldata::Array zorbal_json_large_format_visitor<B>::operator()(ZorbalTypeTag<ZorbalEnum>) const
{
    JsonNode const list = read_data_array(data_, ZorbalTypeTraits<ZorbalEnum>::name);
    std::string const class_name((*object_.find(zqtype_key)).as_string());
    ElementConverter<std::string_view> const convert(&member_name);
    auto const [begin, end] = converting_range(list, convert);
    return backend_->create_enum(begin, end, dims_, class_name);
}

using Backend = foundation::zorbaldata::json::detail::to_zorbaldata_visitor;
template foundation::zorbaldata::Array zorbal_json_large_format_visitor<Backend>::operator()(ZorbalTypeTag<ZorbalEnum>) const;

} // namespace foundation::zorbaljson::detail
