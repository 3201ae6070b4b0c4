// Objects: an instance of a class with one array for each property.
#pragma once

#include "class_record.hpp"
#include "ref.hpp"

#include <foundation/zorbaldata/property.hpp>
#include <zorbal/data/detail/slot_owner.hpp>

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace zorbal::data::detail {

/// An object. Its declared properties come first, at the places its class gives them; properties
/// added later follow. Handles share an object and copy it before they write to it.
class ObjectImpl final : public SlotOwner {
public:
    /// An object of cls holding cls's declared properties.
    explicit ObjectImpl(Ref<ClassRecord> cls);
    ObjectImpl(ObjectImpl const& other);

    ClassRecord const& classRecord() const noexcept { return *class_; }
    Ref<ClassRecord> const& classRef() const noexcept { return class_; }
    std::vector<foundation::zorbaldata::Property> const& properties() const noexcept { return properties_; }

    /// The position of the property that key names: its name, or its name after "<class>." or ".".
    std::optional<std::size_t> find(std::string_view key) const;
    /// As find; a key that names no property adds one, named by key without its qualification.
    std::size_t findOrAdd(std::string_view key);
    /// @throws foundation::zorbaldata::PropertyExistsException when a property of that name exists.
    void add(foundation::zorbaldata::ZorbalPropertyIdentifier const& property, foundation::zorbaldata::Array value);

    RefCounted* arrayAt(unsigned long index) const override;
    void storeArray(unsigned long index, RefCounted* adopted) override;

private:
    std::optional<std::size_t> findName(std::string_view name) const;

    Ref<ClassRecord> class_;
    std::vector<foundation::zorbaldata::Property> properties_;
};

/// The class and properties of an object, or of the default element of an object array.
struct ObjectView {
    ClassRecord const* cls;
    std::vector<foundation::zorbaldata::Property> const* properties;
};

inline ObjectView viewOf(ObjectImpl const& object) noexcept
{
    return {&object.classRecord(), &object.properties()};
}

inline ObjectView defaultView(ClassRecord const& cls) noexcept
{
    return {&cls, &cls.defaults()};
}

/// Whether two objects have the same class name and equal properties, in whatever order.
bool sameObject(ObjectView a, ObjectView b);

} // namespace zorbal::data::detail
