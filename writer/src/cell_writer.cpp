// The writer of cell arrays.
#include <foundation/zorbaldata/json/detail/cell_writer.hpp>

#include <foundation/zorbaldata/element_access.hpp>
#include <foundation/zorbaldata/json/detail/large_form.hpp>
#include <foundation/zorbaldata/json/detail/writer_errors.hpp>

#include <utility>

namespace foundation::zorbaldata::json::detail {

JsonValue write_cell(Dimensions const& dimensions, Range<TypedIterator, Array const> const& elements,
    element_writer write)
{
    large_form form(dimensions, "cell");
    JsonArray data;
    data.reserve(form.count());
    unsigned long walked = 0;
    auto const end = elements.end();
    for (auto element = elements.begin(); !element.isEqual(end); element.increment(), ++walked)
        data.push_back(write(zorbaldata::detail::getValue<Array>(element.getRef())));
    if (walked != form.count())
        throw_count_mismatch();
    return std::move(form).finish(JsonValue(std::move(data)));
}

} // namespace foundation::zorbaldata::json::detail
