// The readers of the ten numeric kinds, real and complex, one template over the kind.
#include <frontend/detail/large_format_visitor.hpp>

#include <frontend/detail/converting_iterator.hpp>
#include <frontend/detail/notation_keys.hpp>
#include <frontend/detail/numeric_elements.hpp>
#include <frontend/detail/parse_error.hpp>
#include <frontend/detail/property_readers.hpp>
#include <frontend/detail/read_data.hpp>

#include <foundation/zorbaldata/json/detail/to_zorbaldata_visitor.hpp>

#include <type_traits>
#include <typeinfo>

namespace foundation::zorbaljson::detail {

template <typename B>
template <NumericZorbalTypeTag Tag>
foundation::zorbaldata::Array zorbal_json_large_format_visitor<B>::operator()(Tag) const
{
    using Traits = ZorbalTypeTraits<Tag::value>;
    using T = typename Traits::element_type;
    // The list, then both flags, whichever kind of array follows.
    JsonNode const list = read_data_array(data_, Traits::name);
    bool const complex = read_flag(object_, zqcomplex_key);
    bool const sparse = read_flag(object_, zqsparse_key);
    if (sparse) {
        if constexpr (std::is_integral_v<T>)
            throw InvalidZQTypeForSparse(typeid(T).name());
        else
            return read_sparse<T>(list, complex);
    }
    if (complex) {
        ElementConverter<T> const convert(&complex_part<T>);
        auto const [begin, end] = converting_range(list, convert);
        return backend_->create_complex_array(dims_, begin, end);
    }
    ElementConverter<T> const convert(&numeric_element<T>);
    auto const [begin, end] = converting_range(list, convert);
    return backend_->create_real_array(dims_, begin, end);
}

using Visitor = zorbal_json_large_format_visitor<foundation::zorbaldata::json::detail::to_zorbaldata_visitor>;
template foundation::zorbaldata::Array Visitor::operator()(ZorbalTypeTag<ZorbalInt8>) const;
template foundation::zorbaldata::Array Visitor::operator()(ZorbalTypeTag<ZorbalInt16>) const;
template foundation::zorbaldata::Array Visitor::operator()(ZorbalTypeTag<ZorbalInt32>) const;
template foundation::zorbaldata::Array Visitor::operator()(ZorbalTypeTag<ZorbalInt64>) const;
template foundation::zorbaldata::Array Visitor::operator()(ZorbalTypeTag<ZorbalUInt8>) const;
template foundation::zorbaldata::Array Visitor::operator()(ZorbalTypeTag<ZorbalUInt16>) const;
template foundation::zorbaldata::Array Visitor::operator()(ZorbalTypeTag<ZorbalUInt32>) const;
template foundation::zorbaldata::Array Visitor::operator()(ZorbalTypeTag<ZorbalUInt64>) const;
template foundation::zorbaldata::Array Visitor::operator()(ZorbalTypeTag<ZorbalSingle>) const;
template foundation::zorbaldata::Array Visitor::operator()(ZorbalTypeTag<ZorbalDouble>) const;

} // namespace foundation::zorbaljson::detail
