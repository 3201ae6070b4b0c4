// The operations that build objects and object arrays piece by piece, as readers do.
#include <foundation/zorbaldata/standalone.hpp>

namespace foundation::zorbaldata::standalone::detail {

void addProperty(Reference<ValueObject> element, ZorbalPropertyIdentifier const& property, Array const& value)
{
    element.addProperty(property, value);
}

void addArrayProperty(ValueObjectArray& array, ZorbalPropertyIdentifier const& property, Array const& value,
                      bool rejectDuplicate)
{
    array.addArrayProperty(property, value, rejectDuplicate);
}

void setExternalDimensions(ValueObjectArray& array, std::vector<unsigned long> dimensions, bool set)
{
    if (set)
        array.setExternalDimensions(std::move(dimensions));
    else
        array.clearExternalDimensions();
}

} // namespace foundation::zorbaldata::standalone::detail
