// The builder of string arrays: UTF-8 text of the JSON tree to optional UTF-16 elements.
#include <foundation/zorbaldata/json/detail/to_zorbaldata_visitor.hpp>

#include <frontend/detail/utf8_to_utf16.hpp>

#include <foundation/zorbaldata/element_access.hpp>
#include <foundation/zorbaldata/json/detail/fill_elements.hpp>

#include <string>

namespace foundation::zorbaldata::json::detail {

Array to_zorbaldata_visitor::create_string(ConvertingIterator<boost::optional<std::string_view>> data,
    ConvertingIterator<boost::optional<std::string_view>> const end,
    std::vector<unsigned long> const& dimensions) const
{
    using Element = zorbal::data::optional<std::u16string>;
    Array array = factory_.createArray(ArrayType::STRING, dimensions);
    // The text is read in place from the document and decoded into one buffer that serves every
    // element; the element's record, which holds its code units, is its one allocation.
    std::u16string units;
    fill_elements<Element>(
        array, data, end, [&units](Reference<Element> const& element, boost::optional<std::string_view> text) {
            // A new array's elements are missing until written.
            if (!text)
                return;
            foundation::zorbaljson::detail::utf8_to_utf16(*text, units);
            element.setText(units);
        });
    return array;
}

} // namespace foundation::zorbaldata::json::detail
