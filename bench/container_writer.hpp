// The containers written into the JSON that our writer makes of the same arrays, by any writer with the
// interface of RapidJSON's Writer: RapidJSON's own, or the hand-written one.
#pragma once

#include "containers.hpp"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace zq::bench::detail {


template <class Writer>
void key(Writer& writer, std::string_view name)
{
    writer.Key(name.data(), static_cast<unsigned>(name.size()));
}

template <class Writer>
void string(Writer& writer, std::string_view text)
{
    writer.String(text.data(), static_cast<unsigned>(text.size()));
}

// Our serialiser writes a whole double below 2^53 as an integer (8, not 8.0), so this one does too:
// the two texts then agree on every count and whole number, and only the spelling of the other
// doubles may differ.
template <class Writer>
void number(Writer& writer, double value)
{
    if (std::abs(value) < 0x1p53 && value == std::trunc(value))
        writer.Int64(static_cast<std::int64_t>(value));
    else
        writer.Double(value);
}

// A char array holds UTF-16 code units, so its size counts those, not the bytes of the UTF-8 text.
inline std::size_t utf16_length(std::string_view utf8)
{
    std::size_t length = 0;
    for (unsigned char const byte : utf8)
        if ((byte & 0xC0) != 0x80)
            length += byte >= 0xF0 ? 2 : 1;
    return length;
}

template <class Writer, class WriteData>
void large_form(Writer& writer, std::size_t rows, std::size_t columns, std::string_view type,
                WriteData write_data)
{
    writer.StartObject();
    key(writer, "zqdata");
    write_data();
    key(writer, "zqsize");
    writer.StartArray();
    writer.Uint64(rows);
    writer.Uint64(columns);
    writer.EndArray();
    key(writer, "zqtype");
    string(writer, type);
    writer.EndObject();
}

template <class Writer, class Values, class WriteElement>
void list(Writer& writer, Values const& values, WriteElement write_element)
{
    writer.StartArray();
    for (auto const& value : values)
        write_element(value);
    writer.EndArray();
}

template <class Writer>
void double_scalar(Writer& writer, double value)
{
    large_form(writer, 1, 1, "double", [&] {
        writer.StartArray();
        number(writer, value);
        writer.EndArray();
    });
}

template <class Writer>
void logical_scalar(Writer& writer, bool value)
{
    large_form(writer, 1, 1, "logical", [&] {
        writer.StartArray();
        writer.Bool(value);
        writer.EndArray();
    });
}

template <class Writer>
void int32_scalar(Writer& writer, std::int32_t value)
{
    large_form(writer, 1, 1, "int32", [&] {
        writer.StartArray();
        writer.Int(value);
        writer.EndArray();
    });
}

// The empty text is the 0-by-0 char array; any other is one row.
template <class Writer>
void char_row(Writer& writer, std::string const& text)
{
    std::size_t const length = utf16_length(text);
    large_form(writer, length == 0 ? 0 : 1, length, "char", [&] {
        writer.StartArray();
        string(writer, text);
        writer.EndArray();
    });
}

template <class Writer>
void double_column(Writer& writer, std::vector<double> const& values)
{
    large_form(writer, values.size(), 1, "double",
               [&] { list(writer, values, [&](double value) { number(writer, value); }); });
}

// The list of field values of a 1-by-1 struct holds one value.
template <class Writer, class Write>
void one(Writer& writer, Write const& write)
{
    writer.StartArray();
    write();
    writer.EndArray();
}

template <class Writer>
void double_matrix(Writer& writer, Matrix<double> const& matrix)
{
    large_form(writer, matrix.rows, matrix.columns, "double",
               [&] { list(writer, matrix.values, [&](double value) { number(writer, value); }); });
}

template <class Writer>
struct CellWriter {
    Writer& writer;

    void operator()(double value) const { double_scalar(writer, value); }
    void operator()(std::string const& text) const { char_row(writer, text); }
    void operator()(bool value) const { logical_scalar(writer, value); }
    void operator()(std::vector<double> const& column) const { double_column(writer, column); }
    void operator()(std::int32_t value) const { int32_scalar(writer, value); }
    void operator()(Matrix<double> const& matrix) const { double_matrix(writer, matrix); }

    // A JSON object reads as a 1-by-1 struct: each field a list of one value, the fields in byte order
    // of their names.
    void operator()(Item const& item) const
    {
        large_form(writer, 1, 1, "struct", [&] {
            writer.StartObject();
            key(writer, "label");
            one(writer, [&] { char_row(writer, item.label); });
            key(writer, "score");
            one(writer, [&] { double_scalar(writer, item.score); });
            key(writer, "values");
            one(writer, [&] { double_column(writer, item.values); });
            writer.EndObject();
        });
    }
};

template <class Writer>
struct LargeWriter {
    Writer& writer;

    void operator()(Matrix<double> const& matrix) const { double_matrix(writer, matrix); }

    void operator()(Matrix<std::int64_t> const& matrix) const
    {
        large_form(writer, matrix.rows, matrix.columns, "int64",
                   [&] { list(writer, matrix.values, [&](std::int64_t value) { writer.Int64(value); }); });
    }

    void operator()(Strings const& strings) const
    {
        large_form(writer, strings.rows, strings.columns, "string", [&] {
            list(writer, strings.values, [&](std::optional<std::string> const& text) {
                if (text) {
                    string(writer, *text);
                    return;
                }
                writer.StartObject();
                key(writer, "zqdata");
                string(writer, "missing");
                writer.EndObject();
            });
        });
    }

    // The fields in byte order of their names, as our writer's JSON objects keep them.
    void operator()(Records const& records) const
    {
        auto const doubles = [&](double value) { double_scalar(writer, value); };
        auto const texts = [&](std::string const& text) { char_row(writer, text); };
        large_form(writer, records.id.size(), 1, "struct", [&] {
            writer.StartObject();
            key(writer, "id");
            list(writer, records.id, doubles);
            key(writer, "name");
            list(writer, records.name, texts);
            key(writer, "ok");
            list(writer, records.ok, [&](bool value) { logical_scalar(writer, value); });
            key(writer, "tag");
            list(writer, records.tag, texts);
            key(writer, "text");
            list(writer, records.text, texts);
            key(writer, "y");
            list(writer, records.y, doubles);
            writer.EndObject();
        });
    }

    void operator()(Cells const& cells) const
    {
        large_form(writer, cells.rows, cells.columns, "cell", [&] {
            list(writer, cells.values,
                [&](Cell const& cell) { std::visit(CellWriter<Writer>{writer}, cell); });
        });
    }
};

} // namespace zq::bench::detail

namespace zq::bench {

/// Writes data as our writer writes its array under ToJsonMode::Large: every array, at every depth, in
/// the large form, so struct fields and cells hold 1-by-1 arrays and char rows. Writer has the
/// interface of RapidJSON's Writer.
template <class Writer>
void write_large(Writer& writer, Containers const& data)
{
    std::visit(detail::LargeWriter<Writer>{writer}, data);
}

/// Writes matrix as nested arrays, one inner array per row: our writer's ToJsonMode::Small form of a
/// matrix of at least two rows and two columns.
template <class Writer>
void write_rows(Writer& writer, Matrix<double> const& matrix)
{
    writer.StartArray();
    for (std::size_t r = 0; r < matrix.rows; ++r) {
        writer.StartArray();
        for (std::size_t c = 0; c < matrix.columns; ++c)
            detail::number(writer, matrix.values[c * matrix.rows + r]);
        writer.EndArray();
    }
    writer.EndArray();
}

} // namespace zq::bench
