// The builders of value object arrays: one object standing for an array, a list of one class, a list of
// objects each of its own class.
#include <foundation/zorbaldata/json/detail/to_zorbaldata_visitor.hpp>

#include <foundation/zorbaldata/element_access.hpp>
#include <foundation/zorbaldata/exceptions.hpp>
#include <foundation/zorbaldata/json/detail/fill_elements.hpp>
#include <foundation/zorbaldata/object_operations.hpp>
#include <foundation/zorbaldata/standalone.hpp>
#include <foundation/zorbaldata/value_object_array.hpp>
#include <frontend/detail/notation_keys.hpp>

#include <boost/optional.hpp>

#include <limits>
#include <utility>

namespace foundation::zorbaldata::json::detail {

namespace {

using PropertyEntry = foundation::zorbaljson::detail::PropertyEntry;

// The element count of the dimensions, 1 for none; a product too large for any array saturates, so that
// no property matches it.
unsigned long element_count(std::vector<unsigned long> const& dimensions)
{
    unsigned long count = 1;
    for (unsigned long const dimension : dimensions)
        if (__builtin_mul_overflow(count, dimension, &count))
            return std::numeric_limits<unsigned long>::max();
    return count;
}

// A property of the single object whose conversion fails, in whatever way, is left out without a word;
// only a tree too deep to read stops the conversion, so that no deep part is lost unnoticed.
template <typename Iterator>
boost::optional<PropertyEntry> try_convert(Iterator const& entry)
{
    try {
        return *entry;
    } catch (foundation::zorbaljson::NestingTooDeep const&) {
        throw;
    } catch (...) {
        return boost::none;
    }
}

// The array library's word for a name given twice becomes the notation's.
template <typename Add>
void add_once(Add const& add)
{
    try {
        add();
    } catch (foundation::zorbaldata::PropertyExistsException const&) {
        throw foundation::zorbaljson::PropertyExistsException();
    }
}

void store_object(Reference<ValueObject> const& element, ValueObject const& object)
{
    object_set_value_x(element.get(), object.get());
}

} // namespace

Array to_zorbaldata_visitor::create_single_object(EntryIterator<PropertyEntry> data,
    EntryIterator<PropertyEntry> const data_end, EntryIterator<PropertyEntry> metadata,
    EntryIterator<PropertyEntry> const metadata_end, std::vector<unsigned long> const& dimensions,
    std::string const& class_name) const
{
    // Made once: the factory's refusal is the same whichever of the three it comes from.
    ValueObjectArray array = [&] {
        try {
            ClassInfo const info = factory_.createClassInfo(ZorbalClassIdentifier(class_name));
            ValueObject const object = factory_.createValueObject(info);
            ValueObjectArray made = factory_.createValueObjectArray({ 1, 1 }, info);
            store_object(made[0], object);
            return made;
        } catch (foundation::zorbaldata::ObjectNotSupportedException const& e) {
            throw foundation::zorbaljson::ObjectNotSupportedException(e.getClassName());
        }
    }();
    standalone::detail::setExternalDimensions(array, dimensions, true);

    // Each property holds the values of all the elements the object stands for.
    unsigned long const count = element_count(dimensions);
    for (; data != data_end; ++data) {
        boost::optional<PropertyEntry> const property = try_convert(data);
        if (!property)
            continue;
        if (property->second.getNumberOfElements() != count)
            throw foundation::zorbaljson::MismatchedZQSize();
        add_once([&] {
            standalone::detail::addProperty(array[0], ZorbalPropertyIdentifier(property->first), property->second);
        });
    }
    for (; metadata != metadata_end; ++metadata) {
        boost::optional<PropertyEntry> const property = try_convert(metadata);
        if (property)
            add_once([&] {
                standalone::detail::addArrayProperty(
                    array, ZorbalPropertyIdentifier(property->first), property->second, true);
            });
    }
    return array;
}

Array to_zorbaldata_visitor::create_object_array(ConvertingIterator<PropertyMap> const begin,
    ConvertingIterator<PropertyMap> const end, std::vector<unsigned long> const& dimensions,
    std::string const& class_name) const
{
    // The first element names the properties of the class.
    std::vector<ZorbalPropertyIdentifier> properties;
    if (begin != end)
        for (auto const& property : *begin)
            properties.emplace_back(property.first);
    ClassInfo const info = factory_.createClassInfo(ZorbalClassIdentifier(class_name), properties);
    Array array = factory_.createValueObjectArray(dimensions, info);
    fill_elements<ValueObject>(array, begin, end, [&](Reference<ValueObject> const& element, PropertyMap values) {
        ValueObject object = factory_.createValueObject(info);
        // Stored under the plain name, which the class declares: the qualified ".name" would be taken
        // for a property whose name it is, such as ".p" beside "p".
        for (ZorbalPropertyIdentifier const& property : properties)
            zorbaldata::detail::setElement<Array>(
                object[property.getPropertyName()], values[property.getExternalPropertyName()]);
        store_object(element, object);
    });
    return array;
}

void to_zorbaldata_visitor::fill_heterogeneous_array(Array& array, ConvertingIterator<HeterogeneousElement> const begin,
    ConvertingIterator<HeterogeneousElement> const end) const
{
    using Position = ConvertingIterator<HeterogeneousElement>;
    fill_elements_at<ValueObject>(array, begin, end, [&](Reference<ValueObject> const& element, Position const& data) {
        PropertyMap const values = (*data).second;
        std::vector<ZorbalPropertyIdentifier> properties;
        for (auto const& property : values)
            if (property.first != foundation::zorbaljson::detail::zqclass_key)
                properties.emplace_back(property.first);
        // The element is read once more for its class, as the class comes with its properties.
        ClassInfo const info = factory_.createClassInfo(ZorbalClassIdentifier((*data).first), properties);
        ValueObject object = factory_.createValueObject(info);
        for (auto const& [name, value] : values)
            zorbaldata::detail::setElement<Array>(object[name], value);
        store_object(element, object);
    });
}

Array to_zorbaldata_visitor::create_heterogeneous_array(ConvertingIterator<HeterogeneousElement> const begin,
    ConvertingIterator<HeterogeneousElement> const end, std::vector<unsigned long> const& dimensions) const
{
    Array array = factory_.createValueObjectArray(dimensions);
    if (begin != end)
        fill_heterogeneous_array(array, begin, end);
    return array;
}

} // namespace foundation::zorbaldata::json::detail
