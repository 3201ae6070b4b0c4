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

std::string number_text(double value)
{
    char buffer[32];
    auto const end = std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
    return std::string(buffer, end);
}

std::string doubles_text(zd::Array const& array)
{
    auto const elements = zd::getReadOnlyElements<double>(array);
    if (array.getDimensions() == Dims { 1, 1 })
        return number_text(*elements.begin());
    std::string text = dims_text(array.getDimensions()) + "(";
    for (double const value : elements)
        text += (text.back() == '(' ? "" : " ") + number_text(value);
    return text + ")";
}

std::string class_text(zd::ClassInfo const& info)
{
    std::string text = info.getClassIdentifier().getFullyQualifiedClassName() + "(";
    for (zd::ZorbalPropertyIdentifier const& property : info.getPropertyIdentifiers())
        text += (text.back() == '(' ? "" : ",") + property.getExternalPropertyName();
    return text + ")";
}

std::string properties_text(
    zd::ForwardIterator<zd::Property const> property, zd::ForwardIterator<zd::Property const> const& end)
{
    std::string text = "{";
    for (; property != end; ++property)
        text += (text.size() > 1 ? ";" : "") + property->getIdentifier().getExternalPropertyName() + "="
            + contents(property->castToArray());
    return text + "}";
}

std::string object_text(zd::ValueObject const& object, bool with_class)
{
    return (with_class ? class_text(object.getClassInfo()) : "")
        + properties_text(object.cbegin(), object.cend());
}

template <typename T, typename Element> std::string list_text(zd::Array const& array, Element element)
{
    std::string text = "[";
    for (auto const reference : zd::getReadOnlyElements<T>(array))
        text += (text.size() > 1 ? ", " : "") + element(reference);
    return text + "]";
}

std::string value_objects_text(zd::ValueObjectArray const& array)
{
    bool const mixed = array.isHeterogeneous();
    std::string text
        = class_text(array.getClassInfo()) + (mixed ? " mixed " : " ") + dims_text(array.getDimensions());
    if (array.isExternalDimensionsSet())
        text += " ext " + dims_text(array.getExternalDimensions());
    text += " "
        + list_text<zd::ValueObject>(array, [&](auto const& element) { return object_text(element, mixed); });
    if (array.beginArrayProp() != array.endArrayProp())
        text += " meta" + properties_text(array.beginArrayProp(), array.endArrayProp());
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
    switch (array.getType()) {
    case zd::ArrayType::DOUBLE:
        return doubles_text(array);
    case zd::ArrayType::CHAR: {
        std::string text = "'";
        for (char16_t const unit : zd::getReadOnlyElements<char16_t>(array))
            text += static_cast<char>(unit);
        return text + "'";
    }
    case zd::ArrayType::VALUE_OBJECT:
        return value_objects_text(zd::ValueObjectArray(array));
    case zd::ArrayType::HANDLE_OBJECT_REF:
        return "handles " + dims_text(array.getDimensions()) + " "
            + list_text<zd::HandleObjectRef>(array, [](auto const& element) { return handle_text(element); });
    case zd::ArrayType::CELL:
        return "cell " + dims_text(array.getDimensions()) + " "
            + list_text<zd::Array>(array, [](auto const& element) { return contents(element); });
    default:
        return std::string(zd::getTypeName(array.getType())) + " " + dims_text(array.getDimensions());
    }
}

zd::ValueObject object(std::string const& class_name, Properties const& properties)
{
    std::vector<zd::ZorbalPropertyIdentifier> declared;
    for (auto const& property : properties)
        declared.emplace_back(property.first);
    zd::ValueObject made
        = factory.createValueObject(factory.createClassInfo(zd::ZorbalClassIdentifier(class_name), declared));
    for (auto const& [name, value] : properties)
        made[name] = value;
    return made;
}

zd::ValueObjectArray objects(
    Dims dims, std::string const& class_name, std::vector<Properties> const& elements)
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
    zd::ValueObjectArray array = objects({ 1, 1 }, class_name, { properties });
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
    made->set_value(objects({ 1, 1 }, class_name, { properties }), 3);
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
    zd::TypedArray<zd::HandleObjectRef> const view(array);
    return view[index];
}

} // namespace zq::test::objects
