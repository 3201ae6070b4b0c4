// The writer of string arrays.
#include <foundation/zorbaldata/json/detail/string_writer.hpp>

#include <foundation/zorbaldata/json/detail/large_form.hpp>
#include <foundation/zorbaldata/json/detail/utf16_to_utf8.hpp>
#include <foundation/zorbaldata/json/detail/word_object.hpp>
#include <foundation/zorbaldata/json/detail/writer_errors.hpp>

#include <utility>

namespace foundation::zorbaldata::json::detail {

JsonValue write_string(Dimensions const& dimensions,
    Range<TypedIterator, zorbal::data::optional<std::u16string> const> const& elements)
{
    large_form form(dimensions, "string");
    JsonArray data;
    data.reserve(form.count());
    unsigned long walked = 0;
    auto const end = elements.end();
    for (auto element = elements.begin(); !element.isEqual(end); element.increment(), ++walked) {
        auto const text = element.getRef();
        // Read through a view: the only allocation per element is the UTF-8 string that the value keeps.
        if (text.has_value())
            data.emplace_back(utf16_to_utf8(text.view()));
        else
            data.push_back(word_object("missing"));
    }
    if (walked != form.count())
        throw_count_mismatch();
    return std::move(form).finish(JsonValue(std::move(data)));
}

} // namespace foundation::zorbaldata::json::detail
