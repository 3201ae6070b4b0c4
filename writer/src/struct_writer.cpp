// The large form and the plain object of struct arrays.
#include <foundation/zorbaldata/json/detail/struct_writer.hpp>

#include <foundation/zorbaldata/json/detail/field_walk.hpp>
#include <foundation/zorbaldata/json/detail/large_form.hpp>

#include <stdexcept>
#include <utility>

namespace foundation::zorbaldata::json::detail {

JsonValue write_struct_large(Dimensions const& dimensions, StructArray const& array, element_writer write)
{
    large_form form(dimensions, "struct");
    unsigned long const count = form.count();
    JsonObject data;
    field_walk walk(array);
    for (ZorbalFieldIdentifier const& field : array.getFieldNames()) {
        JsonArray values;
        values.reserve(count);
        // The walk goes on from field to field, so each field takes the next count values.
        while (values.size() < count && !walk.at_end()) {
            values.push_back(write(walk.value()));
            walk.advance();
        }
        if (values.size() < count)
            throw std::runtime_error(
                "Number of elements for field " + field.getString() + " did not match specified dimensions");
        data[field.getString()] = JsonValue(std::move(values));
    }
    return std::move(form).finish(JsonValue(std::move(data)));
}

JsonValue write_plain_object(StructArray const& array, element_writer write)
{
    JsonObject object;
    field_walk walk(array);
    for (ZorbalFieldIdentifier const& field : array.getFieldNames()) {
        if (walk.at_end())
            throw std::runtime_error("Number of fieldnames does not match number of elements");
        object[field.getString()] = write(walk.value());
        walk.advance();
    }
    if (!walk.at_end())
        throw std::runtime_error("Number of fieldnames does not match number of elements");
    return JsonValue(std::move(object));
}

} // namespace foundation::zorbaldata::json::detail
