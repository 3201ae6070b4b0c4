// The writer of cell arrays: each element written by the variant, in the large form.
#pragma once

#include <foundation/zorbaldata/array.hpp>
#include <foundation/zorbaldata/element_access.hpp>
#include <foundation/zorbaldata/json/detail/dimensions.hpp>
#include <foundation/zorbaldata/json/detail/large_form.hpp>
#include <foundation/zorbaldata/json/detail/writer_errors.hpp>
#include <foundation/zorbaldata/range.hpp>
#include <foundation/zorbaldata/typed_iterator.hpp>

namespace foundation::zorbaldata::json::detail {

/// Writes the large form of a cell array of the dimensions whose elements are the range, under both
/// values of ToJsonMode; write(element, out) writes each element.
/// @throws std::runtime_error "Must have at least two dimensions" for fewer than two dimensions;
/// "Number of elements did not match specified dimensions" when the elements are not as many as the
/// dimensions give. @throws what write throws, unchanged.
template <typename Out, typename WriteElement>
void write_cell(Out& out, Dimensions const& dimensions, Range<TypedIterator, Array const> const& elements,
    WriteElement write)
{
    write_large_form(out, dimensions, "cell", {}, [&] {
        out.begin_array();
        unsigned long walked = 0;
        auto const end = elements.end();
        for (auto element = elements.begin(); !element.isEqual(end); element.increment(), ++walked)
            write(zorbaldata::detail::getValue<Array>(element.getRef()), out);
        out.end_array();
        if (walked != element_count(dimensions))
            throw_count_mismatch();
    });
}

} // namespace foundation::zorbaldata::json::detail
