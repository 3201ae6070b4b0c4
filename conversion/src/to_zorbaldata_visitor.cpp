// The array builders of the conversion backend.
#include <foundation/zorbaldata/json/detail/to_zorbaldata_visitor.hpp>

#include <frontend/detail/parse_error.hpp>

#include <foundation/zorbaldata/element_access.hpp>
#include <foundation/zorbaldata/typed_array.hpp>

#include <algorithm>
#include <utility>

namespace foundation::zorbaldata::json::detail {

namespace {

// The array is made before the data are counted, so a size the factory refuses is reported first.
template <typename T, typename Data>
Array create_filled(ArrayFactory const& factory, ArrayType type, std::vector<unsigned long> dimensions,
    Data const& data)
{
    Array array = factory.createArray(type, std::move(dimensions));
    if (data.size() != array.getNumberOfElements())
        throw foundation::zorbaljson::MismatchedZQSize();
    auto elements = getWritableElements<T>(array);
    std::copy(data.begin(), data.end(), elements.begin());
    return array;
}

} // namespace

Array to_zorbaldata_visitor::create_double_array(
    std::vector<unsigned long> dimensions, std::vector<double> const& data) const
{
    return create_filled<double>(factory_, ArrayType::DOUBLE, std::move(dimensions), data);
}

Array to_zorbaldata_visitor::create_logical_array(
    std::vector<unsigned long> dimensions, std::vector<bool> const& data) const
{
    return create_filled<bool>(factory_, ArrayType::LOGICAL, std::move(dimensions), data);
}

Array to_zorbaldata_visitor::create_char_array(std::u16string const& text) const
{
    return factory_.createCharArray(text);
}

} // namespace foundation::zorbaldata::json::detail
