// The large form of char arrays.
#include <foundation/zorbaldata/json/detail/char_writer.hpp>

#include <foundation/zorbaldata/json/detail/large_form.hpp>

namespace foundation::zorbaldata::json::detail {

JsonValue write_char_large(Dimensions const& dimensions, std::string text)
{
    large_form form(dimensions, "char");
    JsonArray data;
    data.emplace_back(std::move(text));
    return std::move(form).finish(JsonValue(std::move(data)));
}

} // namespace foundation::zorbaldata::json::detail
