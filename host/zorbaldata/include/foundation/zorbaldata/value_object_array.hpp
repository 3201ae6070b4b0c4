// Arrays of value objects, with the properties and dimensions that belong to the array as a whole.
#pragma once

#include <foundation/zorbaldata/class_info.hpp>
#include <foundation/zorbaldata/export.hpp>
#include <foundation/zorbaldata/forward_iterator.hpp>
#include <foundation/zorbaldata/property.hpp>
#include <foundation/zorbaldata/typed_array.hpp>
#include <foundation/zorbaldata/value_object.hpp>

#include <vector>

namespace foundation::zorbaldata {

/// A handle on an array of value objects. An array made with a class is homogeneous as long as all
/// its elements are of that class; one made without a class has the class "zorbal.mixin.Heterogeneous"
/// and is always heterogeneous. An element never set is an object of the array's class with its
/// declared properties. Besides its elements, the array may carry array properties and external
/// dimensions: the dimensions of the array that its one element stands for.
class FOUNDATION_ZORBALDATA_API ValueObjectArray : public TypedArray<ValueObject> {
public:
    using TypedArray<ValueObject>::TypedArray;

    /// The array's class.
    ClassInfo getClassInfo() const;
    /// Whether the elements differ in class, or the array was made without a class.
    bool isHeterogeneous() const;

    /// The array properties, in the order they were added.
    ForwardIterator<Property const> beginArrayProp() const;
    ForwardIterator<Property const> endArrayProp() const;
    /// Adds an array property. With rejectDuplicate, a name that an array property or a property of
    /// an element has already is refused; without it, an array property of that name gets the new value.
    /// @throws PropertyExistsException for a name that is taken.
    void addArrayProperty(ZorbalPropertyIdentifier const& property, Array value, bool rejectDuplicate);

    bool isExternalDimensionsSet() const;
    /// The external dimensions; empty while none are set.
    std::vector<unsigned long> getExternalDimensions() const;
    /// Sets the external dimensions, whatever they are, 1-by-1 included.
    void setExternalDimensions(std::vector<unsigned long> dimensions);
    /// Removes the external dimensions.
    void clearExternalDimensions();
};

} // namespace foundation::zorbaldata
