// The conversions of the properties and elements of object arrays.
#include <frontend/detail/object_converters.hpp>

#include <frontend/detail/json_value_to_zorbal_visitor.hpp>
#include <frontend/detail/notation_keys.hpp>
#include <frontend/detail/parse_error.hpp>

#include <foundation/zorbaldata/json/detail/to_zorbaldata_visitor.hpp>
#include <foundation/zorbaljson/detail/json_frontend_logger.hpp>

#include <stdexcept>
#include <utility>

namespace foundation::zorbaljson::detail {

namespace {

void log_failure(char const* caught, char const* what, std::string const& property)
{
    std::string line = "Caught ";
    line.append(caught).append(" in JSON parser during object conversion: \"").append(what);
    line.append("\" while handling property \"").append(property).append("\"");
    JSONFrontendLogger::write(line);
}

} // namespace

template <typename B>
EntryConverter<PropertyEntry> property_conversion(B& backend)
{
    return [backend = &backend](JsonEntry entry) {
        return PropertyEntry(std::string(entry.key), json_value_to_zorbal_visitor<B>(*backend)(entry.value));
    };
}

template <typename B>
ElementConverter<PropertyMap> element_properties(B& backend, std::string class_name)
{
    return [backend = &backend, class_name = std::move(class_name)](JsonNode element) {
        std::string property = "(property not initialized)";
        try {
            PropertyMap properties;
            element.expect(json_kind::object);
            for (EntryCursor entry = element.entries_begin(); entry != element.entries_end(); ++entry) {
                property = (*entry).key;
                properties.emplace(property, json_value_to_zorbal_visitor<B>(*backend)((*entry).value));
            }
            return properties;
        } catch (ParseError const& e) {
            log_failure("ParseError", e.what(), property);
            throw;
        } catch (std::runtime_error const& e) {
            log_failure("std::runtime_error", e.what(), property);
        } catch (...) {
            JSONFrontendLogger::write(
                "Caught unknown error in JSON parser during object conversion while handling property \"" + property
                + "\"");
        }
        throw InvalidZQDataType(class_name, "object", "");
    };
}

template <typename B>
ElementConverter<HeterogeneousElement> heterogeneous_element(B& backend)
{
    return [backend = &backend](JsonNode element) {
        HeterogeneousElement result;
        bool has_class = false;
        element.expect(json_kind::object);
        for (EntryCursor entry = element.entries_begin(); entry != element.entries_end(); ++entry) {
            auto const [name, value] = *entry;
            if (name == zqtype_key) {
                result.first = value.as_string();
                has_class = true;
            } else {
                result.second.emplace(name, json_value_to_zorbal_visitor<B>(*backend)(value));
            }
        }
        // There is no class name yet to end the text with.
        if (!has_class)
            throw std::runtime_error("Missing zqtype property in an object array of class ");
        return result;
    };
}

ElementConverter<std::string> object_id_converter()
{
    return [](JsonNode id) { return std::string(id.as_string()); };
}

using Backend = foundation::zorbaldata::json::detail::to_zorbaldata_visitor;
template EntryConverter<PropertyEntry> property_conversion(Backend&);
template ElementConverter<PropertyMap> element_properties(Backend&, std::string);
template ElementConverter<HeterogeneousElement> heterogeneous_element(Backend&);

} // namespace foundation::zorbaljson::detail
