// The JSON documents that the benchmarks read, generated from fixed seeds so every run parses the same bytes.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zq::bench {

/// A large-form double array: {"zqdata":[...],"zqsize":[1,count],"zqtype":"double"}, the numbers
/// mostly in [-1e6, 1e6] with some tiny and huge ones, each printed in its shortest exact form.
std::string large_form_doubles(std::size_t count);

/// A large-form int64 array, laid out like large_form_doubles, the magnitudes spread evenly over
/// every bit width from 0 and 1 up to the full int64 range.
std::string large_form_int64(std::size_t count);

/// A rows x columns matrix of doubles written as nested arrays, one inner array per row.
std::string nested_rows(std::size_t rows, std::size_t columns);

/// A flat array of count short strings, a few with an escape or a multi-byte character.
std::string short_strings(std::size_t count);

/// An array of count objects of six members: id, name, x, y, ok and tag.
std::string records(std::size_t count);

/// A large-form string array of count elements: texts of 4 to 24 characters, some escaped, some
/// beyond ASCII, and one element in twenty the missing-string object.
std::string large_form_strings(std::size_t count);

/// A large-form count-by-1 struct array of the fields id, name, ok, tag, text and y, every field
/// value in its small form: a whole number, a short string, a boolean, a label, a text of 100 to 340
/// characters with escapes and non-ASCII characters, and a number with all its digits.
std::string large_form_struct(std::size_t count);

/// A large-form 1-by-count cell array whose elements cycle through a number, a text, a boolean, a
/// flat array of three numbers, a large-form int32 scalar, an object of a label, a score and eight
/// values, a 3 x 4 matrix as nested rows and a long text.
std::string large_form_cell(std::size_t count);

/// The documents the suite measures, by the name that ends each benchmark's name.
enum class DocumentId {
    large_double,
    large_int64,
    rows_double,
    strings,
    records,
    large_string,
    large_struct,
    large_cell,
};

/// The text of the document id, generated at its first use and kept for the rest of the run.
std::string const& document(DocumentId id);

} // namespace zq::bench
