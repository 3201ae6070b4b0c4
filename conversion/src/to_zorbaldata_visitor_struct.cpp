// The builder of struct arrays, for the large form and for plain objects, and the test of field names.
#include <foundation/zorbaldata/json/detail/to_zorbaldata_visitor.hpp>

#include <frontend/detail/chained_converting_iterator.hpp>
#include <frontend/detail/parse_error.hpp>

#include <foundation/zorbaldata/element_access.hpp>
#include <foundation/zorbaldata/exceptions.hpp>
#include <foundation/zorbaldata/typed_array.hpp>

#include <algorithm>
#include <utility>

namespace foundation::zorbaldata::json::detail {

namespace {

using foundation::zorbaljson::InvalidFieldName;
using foundation::zorbaljson::MismatchedZQSize;

bool is_ascii_letter(char byte) noexcept
{
    return (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
}

// Bytes of 0x80 and above are no letters, whatever the locale, so no UTF-8 name passes.
void check_field_name(std::string const& name)
{
    constexpr std::size_t longest = 2049;
    bool const legal = !name.empty() && is_ascii_letter(name.front()) && name.size() <= longest
        && std::all_of(name.begin(), name.end(),
            [](char byte) { return is_ascii_letter(byte) || (byte >= '0' && byte <= '9') || byte == '_'; });
    if (!legal)
        throw InvalidFieldName(name);
}

// The array library's failure does not say which name it refused, so neither does the notation's.
Array create_struct_array(
    ArrayFactory const& factory, std::vector<unsigned long> dimensions, std::vector<std::string> field_names)
{
    try {
        return factory.createStructArray(std::move(dimensions), std::move(field_names));
    } catch (EIllegalStructFieldName const&) {
        throw InvalidFieldName("");
    }
}

} // namespace

template <typename Iterator>
Array to_zorbaldata_visitor::create_struct(Iterator data, Iterator const end,
    std::vector<unsigned long> const& dimensions, std::vector<std::string> const& field_names) const
{
    Array array = create_struct_array(factory_, dimensions, field_names);
    if (array.getNumberOfElements() == 0)
        return array;
    // Field by field, as the values lie in the array and in the notation; the range runs on across
    // fields, so only the total of values is judged, after the last field.
    auto const elements = getWritableElements<StructElement>(array);
    auto element = elements.begin();
    for (std::string const& name : field_names) {
        check_field_name(name);
        for (element = elements.begin(); !element.isEqual(elements.end()) && data != end;
             element.increment(), ++data) {
            if constexpr (requires { data.in_empty_field(); }) {
                if (data.in_empty_field())
                    throw MismatchedZQSize();
            }
            foundation::zorbaldata::detail::setElement<Array>(element.getRef()[name], *data);
        }
    }
    if (!field_names.empty() && (!element.isEqual(elements.end()) || data != end))
        throw MismatchedZQSize();
    return array;
}

using foundation::zorbaljson::detail::ChainedConvertingIterator;
using foundation::zorbaljson::detail::ObjectValuePosition;
template Array to_zorbaldata_visitor::create_struct(ChainedConvertingIterator, ChainedConvertingIterator,
    std::vector<unsigned long> const&, std::vector<std::string> const&) const;
template Array to_zorbaldata_visitor::create_struct(ConvertingIterator<Array, ObjectValuePosition>,
    ConvertingIterator<Array, ObjectValuePosition>, std::vector<unsigned long> const&,
    std::vector<std::string> const&) const;

} // namespace foundation::zorbaldata::json::detail
