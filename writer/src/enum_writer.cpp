// The writer of enumeration arrays.
#include <foundation/zorbaldata/json/detail/enum_writer.hpp>

#include <foundation/zorbaldata/element_access.hpp>
#include <foundation/zorbaldata/json/detail/large_form.hpp>
#include <foundation/zorbaldata/json/detail/writer_errors.hpp>

#include <utility>

namespace foundation::zorbaldata::json::detail {

JsonValue write_enum(Dimensions const& dimensions, std::string class_name,
    Range<TypedIterator, Enumeration const> const& elements)
{
    large_form form(dimensions, std::move(class_name));
    JsonArray data;
    data.reserve(form.count());
    unsigned long walked = 0;
    auto const end = elements.end();
    for (auto element = elements.begin(); !element.isEqual(end); element.increment(), ++walked)
        data.emplace_back(zorbaldata::detail::castToString(element.getRef()));
    if (walked != form.count())
        throw_count_mismatch();
    return std::move(form).finish(JsonValue(std::move(data)));
}

} // namespace foundation::zorbaldata::json::detail
