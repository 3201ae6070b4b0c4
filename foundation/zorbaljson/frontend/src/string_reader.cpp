// The reader of string arrays: a JSON string or the missing-string object for each element.
#include <frontend/detail/large_format_visitor.hpp>

#include <frontend/detail/converting_iterator.hpp>
#include <frontend/detail/notation_keys.hpp>
#include <frontend/detail/parse_error.hpp>
#include <frontend/detail/read_data.hpp>

#include <foundation/json/json_cast.hpp>
#include <foundation/json/traits.hpp>
#include <foundation/zorbaldata/json/detail/to_zorbaldata_visitor.hpp>

#include <boost/optional.hpp>

#include <stdexcept>
#include <string>

namespace foundation::zorbaljson::detail {

namespace {

using foundation::json::json_cast;
using foundation::json::traits;
using StringElement = boost::optional<std::string const&>;

// Only "zqdata" is looked at, and only the exact word "missing" stands for a missing element.
StringElement read_missing_string(foundation::json::Object const& object)
{
    auto const data = object.find(zqdata_key);
    if (data == object.end())
        throw std::runtime_error(zqdata_key + " field not found");
    if (data->second.which() != traits<std::string>::which)
        throw std::runtime_error("Expected a data inside special float objects to be a string");
    if (json_cast<std::string>(data->second) != "missing")
        throw InvalidStringElemType();
    return {};
}

// The text stays in the tree, which outlives the conversion. Anything but a string must be an object,
// so a number fails in that cast, not as an invalid string element.
StringElement read_string_element(foundation::json::Value const& value)
{
    if (value.which() == traits<std::string>::which)
        return json_cast<std::string>(value);
    return read_missing_string(json_cast<foundation::json::Object>(value));
}

} // namespace

template <typename B>
foundation::zorbaldata::Array zorbal_json_large_format_visitor<B>::operator()(
    ZorbalTypeTag<ZorbalString>) const
{
    foundation::json::Array const& list = read_data_array(data_, ZorbalTypeTraits<ZorbalString>::name);
    ElementConverter<StringElement> const convert(&read_string_element);
    auto const [begin, end] = converting_range(list, convert);
    return backend_->create_string(begin, end, dims_);
}

using Visitor = zorbal_json_large_format_visitor<foundation::zorbaldata::json::detail::to_zorbaldata_visitor>;
template foundation::zorbaldata::Array Visitor::operator()(ZorbalTypeTag<ZorbalString>) const;

} // namespace foundation::zorbaljson::detail
