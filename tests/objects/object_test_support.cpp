// What the object tests share.
#include "object_test_support.hpp"

#include "reading_paths.hpp"

#include <charconv>

namespace zq::test::objects {

namespace {

zd::ArrayFactory const factory;

std::string dims_text(Dims const& dims)
{
    std::string text;
    for (unsigned long const dim : dims)
        text += (text.empty() ? "" : "x") + std::to_string(dim);
    return text;
}

// The texts of the elements, each made by text, between open and close and apart by separator.
template <typename Range, typename Text>
std::string joined(Range const& elements, Text text, char const* open, char const* separator, char const* close)
{
    std::string joined;
    for (auto const& element : elements)
        joined += (joined.empty() ? "" : separator) + text(element);
    return open + joined + close;
}

std::string number_text(double value)
{
    char buffer[32];
    return std::string(buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr);
}

std::string class_text(zd::ClassInfo const& info)
{
    return info.getClassIdentifier().getFullyQualifiedClassName()
        + joined(info.getPropertyIdentifiers(), [](auto const& p) { return p.getExternalPropertyName(); }, "(", ",", ")");
}

std::string properties_text(zd::Range<zd::ForwardIterator, zd::Property const> const& properties)
{
    return joined(properties, [](zd::Property const& p) {
        return p.getIdentifier().getExternalPropertyName() + "=" + contents(p.castToArray());
    }, "{", ";", "}");
}

std::string object_text(zd::ValueObject const& object, bool with_class)
{
    return (with_class ? class_text(object.getClassInfo()) : "") + properties_text({object.cbegin(), object.cend()});
}

std::string value_objects_text(zd::ValueObjectArray const& array)
{
    bool const mixed = array.isHeterogeneous();
    std::string text = class_text(array.getClassInfo()) + (mixed ? " mixed " : " ") + dims_text(array.getDimensions());
    if (array.isExternalDimensionsSet())
        text += " ext " + dims_text(array.getExternalDimensions());
    text += " " + joined(zd::getReadOnlyElements<zd::ValueObject>(array),
        [&](auto const& element) { return object_text(element, mixed); }, "[", ", ", "]");
    if (array.beginArrayProp() != array.endArrayProp())
        text += " meta" + properties_text({array.beginArrayProp(), array.endArrayProp()});
    return text;
}

std::string handle_text(zd::HandleObjectRef const& handle)
{
    zd::TypedArray<zd::ValueObject> const value(handle->get_value());
    return "#" + std::to_string(handle->get_object_id()) + " " + object_text(value[0], true);
}

} // namespace

zd::Array read(std::string const& json, Objects objects)
{
    zd::ArrayFactory factory(objects);
    return read_both_ways(json, factory);
}

std::string contents(zd::Array const& array)
{
    std::string const dims = dims_text(array.getDimensions());
    switch (array.getType()) {
    case zd::ArrayType::DOUBLE:
        if (dims == "1x1")
            return number_text(*zd::getReadOnlyElements<double>(array).begin());
        return dims + joined(zd::getReadOnlyElements<double>(array), number_text, "(", " ", ")");
    case zd::ArrayType::CHAR:
        return joined(zd::getReadOnlyElements<char16_t>(array), [](char16_t unit) { return std::string(1, char(unit)); },
            "'", "", "'");
    case zd::ArrayType::VALUE_OBJECT: return value_objects_text(zd::ValueObjectArray(array));
    case zd::ArrayType::HANDLE_OBJECT_REF:
        return "handles " + dims + " " + joined(zd::getReadOnlyElements<zd::HandleObjectRef>(array), handle_text, "[", ", ", "]");
    case zd::ArrayType::CELL:
        return "cell " + dims + " " + joined(zd::getReadOnlyElements<zd::Array>(array), contents, "[", ", ", "]");
    default: return std::string(zd::getTypeName(array.getType())) + " " + dims;
    }
}

zd::ValueObject object(std::string const& class_name, Properties const& properties)
{
    std::vector<zd::ZorbalPropertyIdentifier> declared;
    for (auto const& property : properties)
        declared.emplace_back(property.first);
    zd::ValueObject made = factory.createValueObject(factory.createClassInfo(zd::ZorbalClassIdentifier(class_name), declared));
    for (auto const& [name, value] : properties)
        made[name] = value;
    return made;
}

zd::ValueObjectArray objects(Dims dims, std::string const& class_name, std::vector<Properties> const& elements)
{
    zd::ValueObjectArray array = factory.createValueObjectArray(std::move(dims),
        elements.empty() ? factory.createClassInfo(zd::ZorbalClassIdentifier(class_name))
                         : object(class_name, elements.front()).getClassInfo());
    for (unsigned long i = 0; i < elements.size(); ++i)
        array[i] = object(class_name, elements[i]);
    return array;
}

zd::ValueObjectArray mixed(Dims dims, std::vector<zd::ValueObject> const& elements)
{
    zd::ValueObjectArray array = factory.createValueObjectArray(std::move(dims));
    for (unsigned long i = 0; i < elements.size(); ++i)
        array[i] = elements[i];
    return array;
}

zd::ValueObjectArray standing_for(Dims external, std::string const& class_name, Properties const& properties,
    Properties const& array_properties)
{
    zd::ValueObjectArray array = objects({1, 1}, class_name, {properties});
    array.setExternalDimensions(std::move(external));
    for (auto const& [name, value] : array_properties)
        array.addArrayProperty(zd::ZorbalPropertyIdentifier(name), value, true);
    return array;
}

zd::HandleObjectRef handle(long long object_id, std::string const& class_name, Properties const& properties)
{
    zd::KVXID id;
    id.bytes[0] = 5;
    id.text = kvx_text(5);
    zd::HandleObjectRef made = factory.createHandleObjectRef(std::move(id), object_id);
    made->set_value(objects({1, 1}, class_name, {properties}), 3);
    return made;
}

zd::Array handles(Dims dims, std::vector<zd::HandleObjectRef> const& elements)
{
    zd::TypedArray<zd::HandleObjectRef> array = factory.createArray<zd::HandleObjectRef>(std::move(dims));
    for (unsigned long i = 0; i < elements.size(); ++i)
        array[i] = elements[i];
    return array;
}

zd::HandleObjectRef handle_at(zd::Array const& array, unsigned long index)
{
    return zd::TypedArray<zd::HandleObjectRef>(array)[index];
}

} // namespace zq::test::objects
