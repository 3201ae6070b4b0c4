// The writer of enumeration arrays: the member names under the class name, under both values of ToJsonMode.
#pragma once

#include <foundation/zorbaldata/element_access.hpp>
#include <foundation/zorbaldata/enum_array.hpp>
#include <foundation/zorbaldata/json/detail/dimensions.hpp>
#include <foundation/zorbaldata/json/detail/large_form.hpp>
#include <foundation/zorbaldata/json/detail/writer_errors.hpp>
#include <foundation/zorbaldata/range.hpp>
#include <foundation/zorbaldata/typed_iterator.hpp>

#include <string_view>

namespace foundation::zorbaldata::json::detail {

/// Writes the large form of an enumeration array of the dimensions and the class, whose elements are the
/// range: zqtype is the class name, and zqdata holds one member name for each element.
/// @throws std::runtime_error "Must have at least two dimensions" for fewer than two dimensions;
/// "Number of elements did not match specified dimensions" when the elements are not as many as the
/// dimensions give.
template <typename Out>
void write_enum(Out& out, Dimensions const& dimensions, std::string_view class_name,
    Range<TypedIterator, Enumeration const> const& elements)
{
    write_large_form(out, dimensions, class_name, {}, [&] {
        out.begin_array();
        unsigned long walked = 0;
        auto const end = elements.end();
        for (auto element = elements.begin(); !element.isEqual(end); element.increment(), ++walked)
            out.string(zorbaldata::detail::castToString(element.getRef()));
        out.end_array();
        if (walked != element_count(dimensions))
            throw_count_mismatch();
    });
}

} // namespace foundation::zorbaldata::json::detail
