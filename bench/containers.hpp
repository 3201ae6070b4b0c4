// The plain C++ containers that the hand-written RapidJSON and simdjson readers fill from the benchmark
// documents, and that a hand-written RapidJSON writer writes back: what a program without our arrays
// would use.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace zq::bench {

/// A rows x columns matrix, its elements in column-major order as in our arrays.
template <class Number>
struct Matrix {
    std::size_t rows = 0;
    std::size_t columns = 0;
    std::vector<Number> values;

    bool operator==(Matrix const&) const = default;
};

/// A rows x columns string array; the strings in UTF-8, a missing element empty.
struct Strings {
    std::size_t rows = 0;
    std::size_t columns = 0;
    std::vector<std::optional<std::string>> values;

    bool operator==(Strings const&) const = default;
};

/// The count-by-1 struct array of the six fields of large_form_struct, one vector per field.
struct Records {
    std::vector<double> id;
    std::vector<std::string> name;
    std::vector<bool> ok;
    std::vector<std::string> tag;
    std::vector<std::string> text;
    std::vector<double> y;

    bool operator==(Records const&) const = default;
};

/// The object in a cell of large_form_cell, which reads as a 1-by-1 struct.
struct Item {
    std::string label;
    double score = 0;
    std::vector<double> values;

    bool operator==(Item const&) const = default;
};

/// One cell of large_form_cell: a number, a text, a boolean, a column of numbers, an int32 scalar, a
/// matrix or an object.
using Cell = std::variant<double, std::string, bool, std::vector<double>, std::int32_t, Matrix<double>, Item>;

/// A rows x columns cell array.
struct Cells {
    std::size_t rows = 0;
    std::size_t columns = 0;
    std::vector<Cell> values;

    bool operator==(Cells const&) const = default;
};

/// What one benchmark document becomes.
using Containers = std::variant<Matrix<double>, Matrix<std::int64_t>, Strings, Records, Cells>;

} // namespace zq::bench
