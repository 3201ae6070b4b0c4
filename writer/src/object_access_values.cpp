// What the object writers read from value object arrays.
#include <foundation/zorbaldata/json/detail/object_access.hpp>

#include <foundation/zorbaldata/class_info.hpp>
#include <foundation/zorbaldata/object_operations.hpp>

namespace foundation::zorbaldata::json::detail {

std::string class_name_of(zorbal::data::detail::RefCounted* class_record)
{
    return ClassInfo(class_record).getClassIdentifier().getFullyQualifiedClassName();
}

ForwardIterator<Property const> properties_begin(Reference<ValueObject const> const& element)
{
    return ForwardIterator<Property const>(object_reference_begin_x(element.get()));
}

ForwardIterator<Property const> properties_end(Reference<ValueObject const> const& element)
{
    return ForwardIterator<Property const>(object_reference_end_x(element.get()));
}

} // namespace foundation::zorbaldata::json::detail
