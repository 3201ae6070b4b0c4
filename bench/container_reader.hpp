// The hand-written conversion of a parsed benchmark document into the containers of containers.hpp,
// written once over a small view of a JSON node, so that every parser set beside ours converts and
// checks exactly alike.
//
// A node view is a cheap copyable handle with these members:
//   JsonKind kind() const;
//   double number() const;                      // a number, any integer converted
//   std::optional<std::int64_t> int64() const;  // an integer that fits int64, written without . or e
//   bool boolean() const;
//   std::string_view string() const;            // unescaped UTF-8
//   std::size_t size() const;                   // the elements of an array, the members of an object
//   Node front() const;                         // the first element of a non-empty array
//   void for_each(Visit) const;                 // visits the elements of an array in order
//   std::optional<Node> member(std::string_view key) const;
// Each accessor is called only on a node of the kind it reads.
#pragma once

#include "containers.hpp"
#include "documents.hpp"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zq::bench {

enum class JsonKind { null, boolean, number, string, array, object };

namespace detail {

inline void require(bool condition, char const* what)
{
    if (!condition)
        throw std::runtime_error(what);
}

template <class Node>
Node member(Node const& object, std::string_view key)
{
    std::optional<Node> found = object.member(key);
    if (!found)
        throw std::runtime_error("The object has no member " + std::string(key));
    return *found;
}

template <class Node>
double number(Node const& value)
{
    require(value.kind() == JsonKind::number, "A number was expected");
    return value.number();
}

template <class Node>
std::string utf8(Node const& value)
{
    require(value.kind() == JsonKind::string, "A string was expected");
    return std::string(value.string());
}

template <class Node>
bool boolean(Node const& value)
{
    require(value.kind() == JsonKind::boolean, "A boolean was expected");
    return value.boolean();
}

template <class Node>
std::optional<std::int64_t> integer(Node const& value)
{
    return value.kind() == JsonKind::number ? value.int64() : std::nullopt;
}

template <class Node>
std::int64_t int64(Node const& value)
{
    std::optional<std::int64_t> const n = integer(value);
    require(n.has_value(), "An int64 was expected");
    return *n;
}

template <class Node>
std::size_t count(Node const& value)
{
    double const n = number(value);
    require(n >= 0 && n < 0x1p53 && n == std::trunc(n), "A zqsize entry is no count");
    return static_cast<std::size_t>(n);
}

template <class Node>
bool is_string(Node const& value, std::string_view text)
{
    return value.kind() == JsonKind::string && value.string() == text;
}

// The frame of a large form of two dimensions.
template <class Node>
struct LargeForm {
    Node data;
    std::size_t rows;
    std::size_t columns;
};

template <class Node>
LargeForm<Node> large_form(Node const& value, std::string_view type)
{
    require(value.kind() == JsonKind::object && value.size() == 3, "A large form was expected");
    require(is_string(member(value, "zqtype"), type), "zqtype is not the expected type");
    Node const zqsize = member(value, "zqsize");
    require(zqsize.kind() == JsonKind::array && zqsize.size() == 2, "zqsize is not two dimensions");
    std::size_t dimensions[2] = {};
    std::size_t d = 0;
    zqsize.for_each([&](Node const& entry) { dimensions[d++] = count(entry); });
    return {member(value, "zqdata"), dimensions[0], dimensions[1]};
}

template <class Node>
Node list(Node const& value, std::size_t length)
{
    require(value.kind() == JsonKind::array && value.size() == length, "A list disagrees with zqsize");
    return value;
}

template <class Node>
Node elements(LargeForm<Node> const& form)
{
    return list(form.data, form.rows * form.columns);
}

template <class T, class Node, class Read>
void fill(std::vector<T>& out, Node const& values, Read read)
{
    out.reserve(values.size());
    values.for_each([&](Node const& value) { out.push_back(read(value)); });
}

// A large form of type whose elements convert one by one into the values of a container of rows,
// columns and values.
template <class Container, class Node, class Convert>
Container large_elements(Node const& root, char const* type, Convert convert)
{
    LargeForm<Node> const form = large_form(root, type);
    Container container{form.rows, form.columns, {}};
    fill(container.values, elements(form), convert);
    return container;
}

template <class Node>
Matrix<double> large_doubles(Node const& root)
{
    return large_elements<Matrix<double>>(root, "double", number<Node>);
}

template <class Node>
Matrix<std::int64_t> large_int64(Node const& root)
{
    return large_elements<Matrix<std::int64_t>>(root, "int64", int64<Node>);
}

// Rows in the text, columns first in memory: the same transposition our reader makes. The rows are
// walked in order rather than indexed, since a parser's array may offer no constant-time index.
template <class Node>
Matrix<double> nested_rows(Node const& root)
{
    require(root.kind() == JsonKind::array, "Nested rows were expected");
    Matrix<double> matrix;
    matrix.rows = root.size();
    if (matrix.rows != 0 && root.front().kind() == JsonKind::array)
        matrix.columns = root.front().size();
    matrix.values.resize(matrix.rows * matrix.columns);
    std::size_t r = 0;
    root.for_each([&](Node const& row) {
        double* out = matrix.values.data() + r++;
        list(row, matrix.columns).for_each([&](Node const& value) {
            *out = number(value);
            out += matrix.rows;
        });
    });
    return matrix;
}

template <class Node>
std::optional<std::string> string_or_missing(Node const& value)
{
    if (value.kind() == JsonKind::string)
        return std::string(value.string());
    require(value.kind() == JsonKind::object && value.size() == 1 && is_string(member(value, "zqdata"), "missing"),
            "A string or a missing element was expected");
    return std::nullopt;
}

template <class Node>
Strings large_strings(Node const& root)
{
    return large_elements<Strings>(root, "string", string_or_missing<Node>);
}

template <class Node>
Records large_struct(Node const& root)
{
    LargeForm<Node> const form = large_form(root, "struct");
    require(form.columns == 1 && form.data.kind() == JsonKind::object && form.data.size() == 6,
            "A column of six fields was expected");
    auto const field = [&](char const* name) { return list(member(form.data, name), form.rows); };
    Records records;
    fill(records.id, field("id"), number<Node>);
    fill(records.name, field("name"), utf8<Node>);
    fill(records.ok, field("ok"), boolean<Node>);
    fill(records.tag, field("tag"), utf8<Node>);
    fill(records.text, field("text"), utf8<Node>);
    fill(records.y, field("y"), number<Node>);
    return records;
}

template <class Node>
Cell object_cell(Node const& value)
{
    if (!value.member("zqtype")) {
        require(value.size() == 3, "An object of three members was expected");
        Item item{utf8(member(value, "label")), number(member(value, "score")), {}};
        Node const values = member(value, "values");
        require(values.kind() == JsonKind::array, "An array of values was expected");
        fill(item.values, values, number<Node>);
        return Cell(std::move(item));
    }
    LargeForm<Node> const form = large_form(value, "int32");
    require(form.rows == 1 && form.columns == 1, "An int32 scalar was expected");
    std::optional<std::int64_t> const n = integer(elements(form).front());
    require(n && *n >= std::numeric_limits<std::int32_t>::min() && *n <= std::numeric_limits<std::int32_t>::max(),
            "An int32 was expected");
    return Cell(std::in_place_type<std::int32_t>, static_cast<std::int32_t>(*n));
}

template <class Node>
Cell cell(Node const& value)
{
    switch (value.kind()) {
    case JsonKind::number: return Cell(std::in_place_type<double>, value.number());
    case JsonKind::string: return Cell(std::in_place_type<std::string>, value.string());
    case JsonKind::boolean: return Cell(std::in_place_type<bool>, value.boolean());
    case JsonKind::array: {
        if (value.size() != 0 && value.front().kind() == JsonKind::array)
            return Cell(nested_rows(value));
        std::vector<double> column;
        fill(column, value, number<Node>);
        return Cell(std::move(column));
    }
    case JsonKind::object: return object_cell(value);
    case JsonKind::null: break;
    }
    throw std::runtime_error("A cell holds null");
}

template <class Node>
Cells large_cell(Node const& root)
{
    return large_elements<Cells>(root, "cell", cell<Node>);
}

} // namespace detail

/// The containers of document id, whose parsed root is root: each value checked for its JSON type and
/// copied into the container of its kind.
/// @throws std::runtime_error when the document is not what document id holds (a wrong type name, a
/// size that disagrees with the data, an element of an unexpected JSON type), or for a document that
/// has no containers (strings, records).
template <class Node>
Containers read_containers(DocumentId id, Node const& root)
{
    switch (id) {
    case DocumentId::large_double: return detail::large_doubles(root);
    case DocumentId::large_int64: return detail::large_int64(root);
    case DocumentId::rows_double: return detail::nested_rows(root);
    case DocumentId::large_string: return detail::large_strings(root);
    case DocumentId::large_struct: return detail::large_struct(root);
    case DocumentId::large_cell: return detail::large_cell(root);
    case DocumentId::strings:
    case DocumentId::records: break;
    }
    throw std::runtime_error("The document has no containers");
}

} // namespace zq::bench
