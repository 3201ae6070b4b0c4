// Small notation: the first-leaf walk, the shape check, and the fill in storage order.
#include <frontend/detail/small_notation.hpp>

#include <frontend/detail/converting_iterator.hpp>
#include <frontend/detail/nested_element_iterator.hpp>
#include <frontend/detail/numeric_elements.hpp>
#include <frontend/detail/parse_error.hpp>
#include <frontend/detail/special_float.hpp>

#include <foundation/json/json_cast.hpp>
#include <foundation/json/traits.hpp>
#include <foundation/zorbaldata/json/detail/to_zorbaldata_visitor.hpp>

#include <utility>

namespace foundation::zorbaljson::detail {

namespace {

using foundation::json::json_cast;
using foundation::json::traits;
using foundation::json::Value;
using JsonArray = foundation::json::Array;
using JsonObject = foundation::json::Object;

// Whatever refuses the element, the failure names the two kinds that meet.
double small_double_element(Value const& value)
{
    try {
        return read_floating<double>(value);
    } catch (...) {
        throw ArrayInconsistentTypes("double", small_element_name(value));
    }
}

bool small_logical_element(Value const& value)
{
    if (value.which() != traits<bool>::which)
        throw ArrayInconsistentTypes("logical", small_element_name(value));
    return json_cast<bool>(value);
}

// A flat JSON array is a column; deeper nesting keeps every size, nothing squeezed.
std::vector<unsigned long> small_dimensions(std::vector<unsigned long> const& sizes)
{
    switch (sizes.size()) {
    case 0: return { 0, 0 };
    case 1: return { sizes[0], 1 };
    default: return sizes;
    }
}

template <typename T, typename B>
foundation::zorbaldata::Array create_small_array(B& backend, JsonArray const& array,
    std::vector<unsigned long> const& sizes, ElementConverter<T> const& convert)
{
    using Iterator = ConvertingIterator<T, NestedElementIterator>;
    return backend.create_real_array(small_dimensions(sizes),
        Iterator(NestedElementIterator(array, sizes, false), convert),
        Iterator(NestedElementIterator(array, sizes, true), convert));
}

} // namespace

void first_element_walk(JsonArray const& array, SmallArrayShape& shape)
{
    // A loop rather than a recursion, so that a caller's tree of any depth costs no stack here; the
    // depth is judged from the sizes afterwards.
    JsonArray const* level = &array;
    for (;;) {
        shape.sizes.push_back(level->size());
        if (level->empty()) {
            shape.kind = ZorbalDouble;
            shape.ended_on_empty = true;
            return;
        }
        Value const& first = level->front();
        switch (first.which()) {
        case traits<bool>::which: shape.kind = ZorbalLogical; return;
        case traits<double>::which: shape.kind = ZorbalDouble; return;
        case traits<JsonArray>::which: level = &json_cast<JsonArray>(first); break;
        case traits<JsonObject>::which:
            try {
                static_cast<void>(special_float_from_object(json_cast<JsonObject>(first)));
            } catch (...) {
                throw InvalidArrayElemType();
            }
            shape.kind = ZorbalDouble;
            return;
        default: throw InvalidArrayElemType();
        }
    }
}

void check_nested_shape(JsonArray const& array, std::vector<unsigned long>::const_iterator size,
    std::vector<unsigned long>::const_iterator sizes_end)
{
    bool const leaves = size == sizes_end;
    for (Value const& element : array) {
        bool const nested = element.which() == traits<JsonArray>::which;
        if (leaves) {
            // Leaves are judged by kind later, in storage order; here only their depth counts.
            if (nested)
                throw ArrayInconsistentDepths();
            continue;
        }
        if (!nested)
            throw ArrayInconsistentDepths();
        JsonArray const& inner = json_cast<JsonArray>(element);
        if (inner.size() != *size)
            throw ArrayInconsistentSizes();
        check_nested_shape(inner, size + 1, sizes_end);
    }
}

std::string small_element_name(Value const& value)
{
    switch (value.which()) {
    case traits<bool>::which: return "logical";
    case traits<double>::which: return "double";
    case traits<std::string>::which: return "char";
    case traits<JsonObject>::which: return "object";
    case traits<float>::which: return "single";
    case traits<long long>::which: return "int64";
    case traits<unsigned long long>::which: return "uint64";
    default: return "undefined";
    }
}

template <typename B>
foundation::zorbaldata::Array read_small_notation(JsonArray const& array, B& backend)
{
    SmallArrayShape shape;
    first_element_walk(array, shape);
    // The visitor counted the outermost array; the walk found how many lie below it. The recursive shape
    // check runs only once that depth is known to be allowed.
    auto const levels = backend.nesting().enter(shape.sizes.size() - 1);
    if (!array.empty())
        check_nested_shape(array, shape.sizes.cbegin() + 1, shape.sizes.cend());
    if (shape.ended_on_empty)
        shape.sizes.clear();

    if (shape.kind == ZorbalLogical) {
        ElementConverter<bool> const convert(&small_logical_element);
        return create_small_array(backend, array, shape.sizes, convert);
    }
    ElementConverter<double> const convert(&small_double_element);
    return create_small_array(backend, array, shape.sizes, convert);
}

template foundation::zorbaldata::Array read_small_notation(
    JsonArray const&, foundation::zorbaldata::json::detail::to_zorbaldata_visitor&);

} // namespace foundation::zorbaljson::detail
