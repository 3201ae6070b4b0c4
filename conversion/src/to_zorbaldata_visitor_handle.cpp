// The builders of handle arrays: the objects are read as value objects, then each element gets the
// handle of its object id, one handle for each id within a conversion.
#include <foundation/zorbaldata/json/detail/to_zorbaldata_visitor.hpp>

#include <foundation/zorbaldata/array_type.hpp>
#include <foundation/zorbaldata/class_info.hpp>
#include <foundation/zorbaldata/object_operations.hpp>
#include <foundation/zorbaldata/typed_array.hpp>
#include <foundation/zorbaldata/value_object_array.hpp>
#include <frontend/detail/parse_error.hpp>

#include <string>
#include <utility>

namespace foundation::zorbaldata::json::detail {

namespace {

// Only the low eight bits of the number reach the identifier, in its first byte.
KVXID make_kvx_id(unsigned long number)
{
    KVXID id;
    id.bytes[0] = static_cast<unsigned char>(number & 0xffU);
    id.text = "KVX:";
    for (unsigned char const byte : id.bytes)
        id.text += std::to_string(byte);
    return id;
}

void require_kvx_id(std::string const& kvx_id)
{
    if (kvx_id.empty())
        throw foundation::zorbaljson::InvaildKVXID();
}

} // namespace

Array to_zorbaldata_visitor::create_handles(Array const& objects, ConvertingIterator<std::string> id,
    std::string const& kvx_id, std::vector<unsigned long> const& dimensions)
{
    Array handles = factory_.createArray(ArrayType::HANDLE_OBJECT_REF, dimensions);
    unsigned long const kvx_number = std::stoul(kvx_id, nullptr, 10);
    // The checks before the fill made the ids and both arrays equally long.
    auto const elements = getWritableElements<HandleObjectRef>(handles);
    auto object = getReadOnlyElements<ValueObject>(objects).begin();
    for (auto element = elements.begin(); !element.isEqual(elements.end()); element.increment(), object.increment(), ++id) {
        long long const object_id = std::stoll(*id, nullptr, 10);
        auto known = handle_table_.find(object_id);
        if (known == handle_table_.end()) {
            zorbal::data::detail::RefCounted* shared = nullptr;
            object_reference_shared_copy_x(object.getRef().get(), &shared);
            ValueObject const value(shared);
            ValueObjectArray single
                = factory_.createValueObjectArray({ 1, 1 }, ClassInfo(object_reference_get_class_info_x(object.getRef().get())));
            object_set_value_x(single[0].get(), value.get());
            HandleObjectRef handle = factory_.createHandleObjectRef(make_kvx_id(kvx_number), object_id);
            handle->set_value(single, HandleObjectImpl::SerializableByValue | HandleObjectImpl::CheckValue);
            known = handle_table_.emplace(object_id, std::move(handle)).first;
        }
        handle_ref_set_value_x(element.getRef().get(), known->second.get());
    }
    return handles;
}

Array to_zorbaldata_visitor::create_handle_array(ConvertingIterator<PropertyMap> const begin,
    ConvertingIterator<PropertyMap> const end, ConvertingIterator<std::string> const id,
    std::string const& kvx_id, std::vector<unsigned long> const& dimensions,
    std::string const& class_name)
{
    require_kvx_id(kvx_id);
    return create_handles(create_object_array(begin, end, dimensions, class_name), id, kvx_id, dimensions);
}

Array to_zorbaldata_visitor::create_heterogeneous_handle_array(ConvertingIterator<HeterogeneousElement> const begin,
    ConvertingIterator<HeterogeneousElement> const end, ConvertingIterator<std::string> const id,
    std::string const& kvx_id, std::vector<unsigned long> const& dimensions)
{
    require_kvx_id(kvx_id);
    Array objects = factory_.createValueObjectArray(dimensions);
    // Unlike a heterogeneous value object array, an empty list must match the dimensions here too.
    fill_heterogeneous_array(objects, begin, end);
    return create_handles(objects, id, kvx_id, dimensions);
}

} // namespace foundation::zorbaldata::json::detail
