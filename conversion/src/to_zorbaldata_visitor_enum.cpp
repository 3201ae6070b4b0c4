// The builder of enumeration arrays: member names of one class.
#include <foundation/zorbaldata/json/detail/to_zorbaldata_visitor.hpp>

#include <foundation/zorbaldata/element_access.hpp>
#include <foundation/zorbaldata/json/detail/fill_elements.hpp>

namespace foundation::zorbaldata::json::detail {

Array to_zorbaldata_visitor::create_enum(ConvertingIterator<std::string_view> data,
    ConvertingIterator<std::string_view> const end, std::vector<unsigned long> const& dimensions,
    std::string const& class_name) const
{
    Array array = factory_.createEnumArray(dimensions, class_name);
    // An empty range leaves the array as made, whatever its size: the notation has no empty enumeration,
    // so only a direct call can come here without names.
    if (data != end)
        fill_elements<Enumeration>(
            array, data, end, [](Reference<Enumeration> const& element, std::string_view name) {
                foundation::zorbaldata::detail::setElement<std::string_view>(element, name);
            });
    return array;
}

} // namespace foundation::zorbaldata::json::detail
