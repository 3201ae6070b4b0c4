// The reader of value object and handle arrays: one object standing for an array, or a list of objects.
#include <frontend/detail/large_format_visitor.hpp>

#include <frontend/detail/converting_iterator.hpp>
#include <frontend/detail/handle_reference.hpp>
#include <frontend/detail/notation_keys.hpp>
#include <frontend/detail/object_converters.hpp>
#include <frontend/detail/parse_error.hpp>
#include <frontend/detail/read_data.hpp>

#include <foundation/zorbaldata/json/detail/to_zorbaldata_visitor.hpp>
#include <foundation/zorbaljson/detail/json_frontend_logger.hpp>

#include <cstddef>
#include <string>

namespace foundation::zorbaljson::detail {

namespace {

std::string const object_label = "object";

// The identities that turn a list of objects into handles, with as many ids as the list has elements;
// build makes the array of the ids and the virtual machine's id.
template <typename Build>
foundation::zorbaldata::Array read_handles(
    JsonNode object, std::string const& class_name, std::size_t count, Build build)
{
    HandleReference const reference = read_handle_reference(object, class_name);
    if (count != reference.object_ids.size())
        throw MismatchInRefAndDataLength();
    ElementConverter<std::string> const convert = object_id_converter();
    return build(ConvertingIterator<std::string>(reference.object_ids.begin(), convert), reference.kvx_id);
}

} // namespace

template <typename B>
foundation::zorbaldata::Array zorbal_json_large_format_visitor<B>::object_helper(bool handle) const
{
    std::string const class_name((*object_.find(zqtype_key)).as_string());
    JSONFrontendLogger::write("JSON parser is parsing object of type: " + class_name);
    if (class_name == heterogeneous_class_name)
        return read_heterogeneous_list(handle);
    try {
        return read_single_object(class_name);
    } catch (MismatchedZQSize const&) {
        throw;
    } catch (PropertyExistsException const&) {
        throw;
    } catch (ObjectNotSupportedException const&) {
        throw;
    } catch (NestingTooDeep const&) {
        // A tree too deep to read is refused as such, whichever form it has.
        throw;
    } catch (...) {
        // The data may still be a list; if it is not, the list's reader says so, and this failure is lost.
    }
    return read_object_list(handle, class_name);
}

template <typename B>
foundation::zorbaldata::Array zorbal_json_large_format_visitor<B>::read_single_object(
    std::string const& class_name) const
{
    JsonNode const data = read_data_object(data_, object_label);
    // Without "zqmetadata" the metadata range is any empty one.
    EntryCursor metadata_begin = data.entries_end();
    EntryCursor metadata_end = data.entries_end();
    if (auto const metadata = object_.find(zqmetadata_key)) {
        JsonNode const properties = read_data_object(*metadata, object_label);
        metadata_begin = properties.entries_begin();
        metadata_end = properties.entries_end();
    }
    auto const level = backend_->nesting().enter();
    using Iterator = ConvertingIterator<PropertyEntry, ObjectEntryPosition>;
    EntryConverter<PropertyEntry> const convert = property_conversion(*backend_);
    return backend_->create_single_object(Iterator(data.entries_begin(), convert),
        Iterator(data.entries_end(), convert),
        Iterator(metadata_begin, convert), Iterator(metadata_end, convert), dims_, class_name);
}

template <typename B>
foundation::zorbaldata::Array zorbal_json_large_format_visitor<B>::read_object_list(
    bool handle, std::string const& class_name) const
{
    JsonNode const list = read_data_array(data_, object_label);
    // The list and an element's object are two levels between this object and a property's value.
    auto const level = backend_->nesting().enter(2);
    ElementConverter<PropertyMap> const convert = element_properties(*backend_, class_name);
    auto const range = converting_range(list, convert);
    if (!handle)
        return backend_->create_object_array(range.first, range.second, dims_, class_name);
    return read_handles(object_, class_name, list.size(), [&](auto ids, std::string const& kvx_id) {
        return backend_->create_handle_array(range.first, range.second, ids, kvx_id, dims_, class_name);
    });
}

template <typename B>
foundation::zorbaldata::Array zorbal_json_large_format_visitor<B>::read_heterogeneous_list(bool handle) const
{
    JsonNode const list = read_data_array(data_, object_label);
    auto const level = backend_->nesting().enter(2);
    ElementConverter<HeterogeneousElement> const convert = heterogeneous_element(*backend_);
    auto const range = converting_range(list, convert);
    if (!handle)
        return backend_->create_heterogeneous_array(range.first, range.second, dims_);
    return read_handles(object_, heterogeneous_class_name, list.size(),
        [&](auto ids, std::string const& kvx_id) {
            return backend_->create_heterogeneous_handle_array(range.first, range.second, ids, kvx_id, dims_);
        });
}

using Backend = foundation::zorbaldata::json::detail::to_zorbaldata_visitor;
template foundation::zorbaldata::Array zorbal_json_large_format_visitor<Backend>::object_helper(bool) const;

} // namespace foundation::zorbaljson::detail
