// The reader of char arrays: one string of code units, shaped by "zqsize" alone.
#include <frontend/detail/large_format_visitor.hpp>

#include <frontend/detail/parse_error.hpp>
#include <frontend/detail/read_data.hpp>

#include <foundation/zorbaldata/json/detail/to_zorbaldata_visitor.hpp>

#include <string>

namespace foundation::zorbaljson::detail {

template <typename B>
foundation::zorbaldata::Array zorbal_json_large_format_visitor<B>::operator()(ZorbalTypeTag<ZorbalChar>) const
{
    JsonNode const list = read_data_array(data_, ZorbalTypeTraits<ZorbalChar>::name);
    if (list.size() != 1 || !(*list.begin()).is(json_kind::string))
        throw InvalidCharArrayZQData();
    return backend_->create_char_array(dims_, (*list.begin()).as_string());
}

using Backend = foundation::zorbaldata::json::detail::to_zorbaldata_visitor;
template foundation::zorbaldata::Array zorbal_json_large_format_visitor<Backend>::operator()(ZorbalTypeTag<ZorbalChar>) const;

} // namespace foundation::zorbaljson::detail
