// The large-format visitor: the dimensions from "zqsize".
#include <frontend/detail/large_format_visitor.hpp>

#include <frontend/detail/parse_error.hpp>

#include <foundation/zorbaldata/json/detail/to_zorbaldata_visitor.hpp>

#include <cmath>

namespace foundation::zorbaljson::detail {

namespace {

// Every fault of the size has the one failure, whatever it is.
std::vector<unsigned long> read_dimensions(JsonNode size)
{
    std::vector<unsigned long> dims;
    dims.reserve(size.size());
    for (ElementCursor entry = size.begin(); entry != size.end(); ++entry) {
        if (!(*entry).is(json_kind::number))
            throw InvalidZQSize();
        double const extent = (*entry).as_double();
        // modf gives a NaN a fraction of NaN and -0.0 one of 0, so NaN fails and -0.0 is 0; an infinity
        // has no fraction but fails the range.
        double whole;
        if (std::modf(extent, &whole) != 0.0 || extent <= -1.0 || extent >= 18446744073709551616.0)
            throw InvalidZQSize();
        dims.push_back(static_cast<unsigned long>(extent));
    }
    if (dims.size() < 2)
        throw InvalidZQSize();
    return dims;
}

} // namespace

template <typename B>
zorbal_json_large_format_visitor<B>::zorbal_json_large_format_visitor(
    JsonNode object, JsonNode data, JsonNode size, B& backend)
    : object_(object)
    , data_(data)
    , dims_(read_dimensions(size))
    , backend_(&backend)
{
}

template class zorbal_json_large_format_visitor<foundation::zorbaldata::json::detail::to_zorbaldata_visitor>;

} // namespace foundation::zorbaljson::detail
