// The reader of struct arrays in the large form: a JSON array of element values under each field name.
#include <frontend/detail/large_format_visitor.hpp>

#include <frontend/detail/chained_converting_iterator.hpp>
#include <frontend/detail/json_value_to_zorbal_visitor.hpp>
#include <frontend/detail/read_data.hpp>

#include <foundation/zorbaldata/json/detail/to_zorbaldata_visitor.hpp>

#include <string>
#include <vector>

namespace foundation::zorbaljson::detail {

template <typename B>
foundation::zorbaldata::Array zorbal_json_large_format_visitor<B>::operator()(
    ZorbalTypeTag<ZorbalStruct>) const
{
    JsonNode const fields = read_data_object(data_, ZorbalTypeTraits<ZorbalStruct>::name);
    std::vector<std::string> names;
    names.reserve(fields.size());
    for (EntryCursor field = fields.entries_begin(); field != fields.entries_end(); ++field)
        names.emplace_back((*field).key);
    // The object of fields and a field's list are two levels between this object and a value.
    auto const level = backend_->nesting().enter(2);
    ElementConverter<Array> const convert = nested_document_converter(*backend_);
    // Making the begin casts the first field's value, before the array exists.
    ChainedConvertingIterator const begin(fields.entries_begin(), fields.entries_end(), convert);
    ChainedConvertingIterator const end(fields.entries_end(), fields.entries_end(), convert);
    return backend_->create_struct(begin, end, dims_, names);
}

using Backend = foundation::zorbaldata::json::detail::to_zorbaldata_visitor;
template foundation::zorbaldata::Array zorbal_json_large_format_visitor<Backend>::operator()(ZorbalTypeTag<ZorbalStruct>) const;

} // namespace foundation::zorbaljson::detail
