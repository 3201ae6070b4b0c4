// Small notation: the first-leaf walk, the shape check, and the fill in storage order.
#include <frontend/detail/small_notation.hpp>

#include <frontend/detail/converting_iterator.hpp>
#include <frontend/detail/nested_element_iterator.hpp>
#include <frontend/detail/numeric_elements.hpp>
#include <frontend/detail/parse_error.hpp>
#include <frontend/detail/special_float.hpp>

#include <foundation/zorbaldata/json/detail/to_zorbaldata_visitor.hpp>

#include <utility>

namespace foundation::zorbaljson::detail {

namespace {

// Whatever refuses the element, the failure names the two kinds that meet.
double small_double_element(JsonNode value)
{
    try {
        return read_floating<double>(value);
    } catch (...) {
        throw ArrayInconsistentTypes("double", small_element_name(value));
    }
}

bool small_logical_element(JsonNode value)
{
    if (!value.is(json_kind::boolean))
        throw ArrayInconsistentTypes("logical", small_element_name(value));
    return value.as_bool();
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
foundation::zorbaldata::Array create_small_array(B& backend, JsonNode array,
    std::vector<unsigned long> const& sizes, ElementConverter<T> const& convert)
{
    using Iterator = ConvertingIterator<T, NestedElementIterator>;
    return backend.create_real_array(small_dimensions(sizes),
        Iterator(NestedElementIterator(array, sizes, false), convert),
        Iterator(NestedElementIterator(array, sizes, true), convert));
}

} // namespace

void first_element_walk(JsonNode array, SmallArrayShape& shape)
{
    // A loop rather than a recursion, so that a caller's tree of any depth costs no stack here; the
    // depth is judged from the sizes afterwards.
    JsonNode level = array;
    for (;;) {
        shape.sizes.push_back(level.size());
        if (level.size() == 0) {
            shape.kind = ZorbalDouble;
            shape.ended_on_empty = true;
            return;
        }
        JsonNode const first = *level.begin();
        switch (first.kind()) {
        case json_kind::boolean: shape.kind = ZorbalLogical; return;
        case json_kind::number: shape.kind = ZorbalDouble; return;
        case json_kind::array: level = first; break;
        case json_kind::object:
            try {
                static_cast<void>(special_float_from_object(first));
            } catch (...) {
                throw InvalidArrayElemType();
            }
            shape.kind = ZorbalDouble;
            return;
        default: throw InvalidArrayElemType();
        }
    }
}

void check_nested_shape(JsonNode array, std::vector<unsigned long>::const_iterator size,
    std::vector<unsigned long>::const_iterator sizes_end)
{
    bool const leaves = size == sizes_end;
    // A packed array holds numbers only, so none of its elements is nested.
    if (leaves && array.packed_form() != 0)
        return;
    for (ElementCursor cursor = array.begin(); cursor != array.end(); ++cursor) {
        JsonNode const element = *cursor;
        bool const nested = element.is(json_kind::array);
        if (leaves) {
            // Leaves are judged by kind later, in storage order; here only their depth counts.
            if (nested)
                throw ArrayInconsistentDepths();
            continue;
        }
        if (!nested)
            throw ArrayInconsistentDepths();
        if (element.size() != *size)
            throw ArrayInconsistentSizes();
        check_nested_shape(element, size + 1, sizes_end);
    }
}

std::string small_element_name(JsonNode value)
{
    switch (value.kind()) {
    case json_kind::boolean: return "logical";
    case json_kind::number: return "double";
    case json_kind::string: return "char";
    case json_kind::object: return "object";
    case json_kind::single: return "single";
    case json_kind::int64: return "int64";
    case json_kind::uint64: return "uint64";
    default: return "undefined";
    }
}

template <typename B>
foundation::zorbaldata::Array read_small_notation(JsonNode array, B& backend)
{
    SmallArrayShape shape;
    first_element_walk(array, shape);
    // The visitor counted the outermost array; the walk found how many lie below it. The recursive shape
    // check runs only once that depth is known to be allowed.
    auto const levels = backend.nesting().enter(shape.sizes.size() - 1);
    if (array.size() != 0)
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
    JsonNode, foundation::zorbaldata::json::detail::to_zorbaldata_visitor&);

} // namespace foundation::zorbaljson::detail
