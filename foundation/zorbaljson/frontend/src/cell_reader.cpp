// The reader of cell arrays: every entry is a document of its own, read with the same backend.
#include <frontend/detail/large_format_visitor.hpp>

#include <frontend/detail/converting_iterator.hpp>
#include <frontend/detail/json_value_to_zorbal_visitor.hpp>
#include <frontend/detail/read_data.hpp>

#include <foundation/zorbaldata/json/detail/to_zorbaldata_visitor.hpp>

namespace foundation::zorbaljson::detail {

template <typename B>
foundation::zorbaldata::Array zorbal_json_large_format_visitor<B>::operator()(ZorbalTypeTag<ZorbalCell>) const
{
    JsonNode const list = read_data_array(data_, ZorbalTypeTraits<ZorbalCell>::name);
    // The list is one level of nesting between this object and its entries.
    auto const level = backend_->nesting().enter();
    ElementConverter<Array> const convert = nested_document_converter(*backend_);
    auto const [begin, end] = converting_range(list, convert);
    return backend_->create_cell(begin, end, dims_);
}

using Backend = foundation::zorbaldata::json::detail::to_zorbaldata_visitor;
template foundation::zorbaldata::Array zorbal_json_large_format_visitor<Backend>::operator()(ZorbalTypeTag<ZorbalCell>) const;

} // namespace foundation::zorbaljson::detail
