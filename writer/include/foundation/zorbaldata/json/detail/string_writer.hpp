// The writer of string arrays: one JSON string, or a missing-string object, for each element.
#pragma once

#include <foundation/zorbaldata/json/detail/dimensions.hpp>
#include <foundation/zorbaldata/json/detail/large_form.hpp>
#include <foundation/zorbaldata/json/detail/word_object.hpp>
#include <foundation/zorbaldata/json/detail/writer_errors.hpp>
#include <foundation/zorbaldata/range.hpp>
#include <foundation/zorbaldata/typed_iterator.hpp>
#include <zorbal/data/optional.hpp>

#include <string>

namespace foundation::zorbaldata::json::detail {

/// Writes the large form of a string array of the dimensions whose elements are the range, under both
/// values of ToJsonMode: each element as UTF-8, a missing one as {"zqdata":"missing"}.
/// @throws std::runtime_error "Must have at least two dimensions" for fewer than two dimensions;
/// "Number of elements did not match specified dimensions" when the elements are not as many as the
/// dimensions give. @throws as utf16_to_utf8.
template <typename Out>
void write_string(Out& out, Dimensions const& dimensions,
    Range<TypedIterator, zorbal::data::optional<std::u16string> const> const& elements)
{
    write_large_form(out, dimensions, "string", {}, [&] {
        out.begin_array();
        unsigned long walked = 0;
        auto const end = elements.end();
        for (auto element = elements.begin(); !element.isEqual(end); element.increment(), ++walked) {
            auto const text = element.getRef();
            if (text.has_value())
                out.string(text.view());
            else
                write_word_object(out, "missing");
        }
        out.end_array();
        if (walked != element_count(dimensions))
            throw_count_mismatch();
    });
}

} // namespace foundation::zorbaldata::json::detail
