// The reader of string arrays: a JSON string or the missing-string object for each element.
#include <frontend/detail/large_format_visitor.hpp>

#include <frontend/detail/converting_iterator.hpp>
#include <frontend/detail/notation_keys.hpp>
#include <frontend/detail/parse_error.hpp>
#include <frontend/detail/read_data.hpp>

#include <foundation/zorbaldata/json/detail/to_zorbaldata_visitor.hpp>

#include <boost/optional.hpp>

#include <stdexcept>
#include <string>

namespace foundation::zorbaljson::detail {

namespace {

using StringElement = boost::optional<std::string_view>;

// Only "zqdata" is looked at, and only the exact word "missing" stands for a missing element.
StringElement read_missing_string(JsonNode object)
{
    auto const data = object.find(zqdata_key);
    if (!data)
        throw std::runtime_error(zqdata_key + " field not found");
    if (!data->is(json_kind::string))
        throw std::runtime_error("Expected a data inside special float objects to be a string");
    if (data->as_string() != "missing")
        throw InvalidStringElemType();
    return {};
}

// The text stays in the tree, which outlives the conversion. Anything but a string must be an object,
// so a number fails in that cast, not as an invalid string element.
StringElement read_string_element(JsonNode value)
{
    if (value.is(json_kind::string))
        return value.as_string();
    value.expect(json_kind::object);
    return read_missing_string(value);
}

} // namespace

template <typename B>
foundation::zorbaldata::Array zorbal_json_large_format_visitor<B>::operator()(
    ZorbalTypeTag<ZorbalString>) const
{
    JsonNode const list = read_data_array(data_, ZorbalTypeTraits<ZorbalString>::name);
    ElementConverter<StringElement> const convert(&read_string_element);
    auto const [begin, end] = converting_range(list, convert);
    return backend_->create_string(begin, end, dims_);
}

using Backend = foundation::zorbaldata::json::detail::to_zorbaldata_visitor;
template foundation::zorbaldata::Array zorbal_json_large_format_visitor<Backend>::operator()(ZorbalTypeTag<ZorbalString>) const;

} // namespace foundation::zorbaljson::detail
