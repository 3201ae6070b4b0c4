// What the object tests share.
#include "object_test_support.hpp"

#include "reading_paths.hpp"

#include <algorithm>
#include <charconv>

namespace zq::test::objects {

namespace {

zd::ArrayFactory const factory;

// The texts of the elements, each made by text, between the two characters of brackets and apart by
// separator.
template <typename Range, typename Text>
std::string joined(Range const& elements, Text text, char const* brackets, char const* separator = ", ")
{
    std::string joined(1, brackets[0]);
    for (auto const& element : elements)
        joined += (joined.size() == 1 ? "" : separator) + text(element);
    return joined + brackets[1];
}

template <typename T>
auto elements(zd::Array const& array) { return zd::getReadOnlyElements<T>(array); }

std::string dims_text(Dims const& dims)
{
    std::string const text = joined(dims, [](unsigned long dim) { return std::to_string(dim); }, "()", "x");
    return text.substr(1, text.size() - 2);
}

std::string number_text(double value)
{
    char buffer[32];
    return std::string(buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr);
}

std::string class_text(zd::ClassInfo const& info)
{
    auto const name = [](auto const& p) { return p.getExternalPropertyName(); };
    return info.getClassIdentifier().getFullyQualifiedClassName()
        + joined(info.getPropertyIdentifiers(), name, "()", ",");
}

std::string properties_text(zd::Range<zd::ForwardIterator, zd::Property const> const& properties)
{
    auto const text = [](zd::Property const& p) {
        return p.getIdentifier().getExternalPropertyName() + "=" + contents(p.castToArray());
    };
    return joined(properties, text, "{}", ";");
}

std::string object_text(zd::ValueObject const& object, bool with_class)
{
    std::string const properties = properties_text({object.cbegin(), object.cend()});
    return with_class ? class_text(object.getClassInfo()) + properties : properties;
}

std::string value_objects_text(zd::ValueObjectArray const& array)
{
    bool const mixed = array.isHeterogeneous();
    std::string text = class_text(array.getClassInfo()) + (mixed ? " mixed " : " ");
    text += dims_text(array.getDimensions());
    if (array.isExternalDimensionsSet())
        text += " ext " + dims_text(array.getExternalDimensions());
    auto const element = [&](zd::ValueObject const& object) { return object_text(object, mixed); };
    text += " " + joined(elements<zd::ValueObject>(array), element, "[]");
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
            return number_text(*elements<double>(array).begin());
        return dims + joined(elements<double>(array), number_text, "()", " ");
    case zd::ArrayType::CHAR:
        return joined(elements<char16_t>(array), [](char16_t u) { return std::string(1, char(u)); }, "''",
            "");
    case zd::ArrayType::VALUE_OBJECT: return value_objects_text(zd::ValueObjectArray(array));
    case zd::ArrayType::HANDLE_OBJECT_REF:
        return "handles " + dims + " " + joined(elements<zd::HandleObjectRef>(array), handle_text, "[]");
    case zd::ArrayType::CELL:
        return "cell " + dims + " " + joined(elements<zd::Array>(array), contents, "[]");
    default: return std::string(zd::getTypeName(array.getType())) + " " + dims;
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

zd::ValueObjectArray objects(Dims dims, std::string const& class_name, std::vector<Properties> const& list)
{
    zd::ValueObjectArray array = factory.createValueObjectArray(std::move(dims),
        list.empty() ? factory.createClassInfo(zd::ZorbalClassIdentifier(class_name))
                     : object(class_name, list.front()).getClassInfo());
    for (unsigned long i = 0; i < list.size(); ++i)
        array[i] = object(class_name, list[i]);
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
    zd::Array array = factory.createArray<zd::HandleObjectRef>(std::move(dims));
    std::copy(elements.begin(), elements.end(), zd::getWritableElements<zd::HandleObjectRef>(array).begin());
    return array;
}

zd::HandleObjectRef handle_at(zd::Array const& array, unsigned long index)
{
    return zd::TypedArray<zd::HandleObjectRef>(array)[index];
}

} // namespace zq::test::objects
