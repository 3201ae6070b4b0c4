// RapidJSON's DOM of each benchmark document, copied into plain containers with every type checked.
#include "rapidjson_reader.hpp"

#include <rapidjson/document.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <utility>
#include <vector>

namespace zq::bench {
namespace {

using Json = rapidjson::Value;

void require(bool condition, char const* what)
{
    if (!condition)
        throw std::runtime_error(what);
}

std::string_view view(Json const& value) { return {value.GetString(), value.GetStringLength()}; }

Json const& member(Json const& object, char const* key)
{
    auto const found = object.FindMember(key);
    if (found == object.MemberEnd())
        throw std::runtime_error(std::string("The object has no member ") + key);
    return found->value;
}

double number(Json const& value)
{
    require(value.IsNumber(), "A number was expected");
    return value.GetDouble();
}

std::string utf8(Json const& value)
{
    require(value.IsString(), "A string was expected");
    return std::string(value.GetString(), value.GetStringLength());
}

bool boolean(Json const& value)
{
    require(value.IsBool(), "A boolean was expected");
    return value.GetBool();
}

std::size_t count(Json const& value)
{
    double const n = number(value);
    require(n >= 0 && n < 0x1p53 && n == std::trunc(n), "A zqsize entry is no count");
    return static_cast<std::size_t>(n);
}

// The frame of a large form of two dimensions.
struct LargeForm {
    Json const& data;
    std::size_t rows;
    std::size_t columns;
};

LargeForm large_form(Json const& value, std::string_view type)
{
    require(value.IsObject() && value.MemberCount() == 3, "A large form was expected");
    Json const& zqtype = member(value, "zqtype");
    require(zqtype.IsString() && view(zqtype) == type, "zqtype is not the expected type");
    Json const& zqsize = member(value, "zqsize");
    require(zqsize.IsArray() && zqsize.Size() == 2, "zqsize is not two dimensions");
    return {member(value, "zqdata"), count(zqsize[0]), count(zqsize[1])};
}

Json::ConstArray list(Json const& value, std::size_t length)
{
    require(value.IsArray() && value.Size() == length, "A list disagrees with zqsize");
    return value.GetArray();
}

Json::ConstArray elements(LargeForm const& form) { return list(form.data, form.rows * form.columns); }

template <class T, class Read>
void fill(std::vector<T>& out, Json::ConstArray values, Read read)
{
    out.reserve(values.Size());
    for (Json const& value : values)
        out.push_back(read(value));
}

Matrix<double> large_doubles(Json const& root)
{
    LargeForm const form = large_form(root, "double");
    Matrix<double> matrix{form.rows, form.columns, {}};
    fill(matrix.values, elements(form), number);
    return matrix;
}

Matrix<std::int64_t> large_int64(Json const& root)
{
    LargeForm const form = large_form(root, "int64");
    Matrix<std::int64_t> matrix{form.rows, form.columns, {}};
    fill(matrix.values, elements(form), [](Json const& value) {
        require(value.IsInt64(), "An int64 was expected");
        return value.GetInt64();
    });
    return matrix;
}

// Rows in the text, columns first in memory: the same transposition our reader makes.
Matrix<double> nested_rows(Json const& root)
{
    require(root.IsArray(), "Nested rows were expected");
    Matrix<double> matrix;
    matrix.rows = root.Size();
    matrix.columns = matrix.rows != 0 && root[0].IsArray() ? root[0].Size() : 0;
    matrix.values.resize(matrix.rows * matrix.columns);
    for (std::size_t r = 0; r < matrix.rows; ++r) {
        Json::ConstArray const row = list(root[static_cast<rapidjson::SizeType>(r)], matrix.columns);
        for (std::size_t c = 0; c < matrix.columns; ++c)
            matrix.values[c * matrix.rows + r] = number(row[static_cast<rapidjson::SizeType>(c)]);
    }
    return matrix;
}

Strings large_strings(Json const& root)
{
    LargeForm const form = large_form(root, "string");
    Strings strings{form.rows, form.columns, {}};
    fill(strings.values, elements(form), [](Json const& value) -> std::optional<std::string> {
        if (value.IsString())
            return utf8(value);
        require(value.IsObject() && value.MemberCount() == 1 && member(value, "zqdata").IsString()
                    && view(member(value, "zqdata")) == "missing",
                "A string or a missing element was expected");
        return std::nullopt;
    });
    return strings;
}

Records large_struct(Json const& root)
{
    LargeForm const form = large_form(root, "struct");
    require(form.columns == 1 && form.data.IsObject() && form.data.MemberCount() == 6,
            "A column of six fields was expected");
    auto const field = [&](char const* name) { return list(member(form.data, name), form.rows); };
    Records records;
    fill(records.id, field("id"), number);
    fill(records.name, field("name"), utf8);
    fill(records.ok, field("ok"), boolean);
    fill(records.tag, field("tag"), utf8);
    fill(records.text, field("text"), utf8);
    fill(records.y, field("y"), number);
    return records;
}

Cell cell(Json const& value)
{
    switch (value.GetType()) {
    case rapidjson::kNumberType: return Cell(std::in_place_type<double>, value.GetDouble());
    case rapidjson::kStringType: return Cell(std::in_place_type<std::string>, utf8(value));
    case rapidjson::kFalseType:
    case rapidjson::kTrueType: return Cell(std::in_place_type<bool>, value.GetBool());
    case rapidjson::kArrayType: {
        if (!value.Empty() && value[0].IsArray())
            return Cell(nested_rows(value));
        std::vector<double> column;
        fill(column, value.GetArray(), number);
        return Cell(std::move(column));
    }
    case rapidjson::kObjectType: {
        if (!value.HasMember("zqtype")) {
            require(value.MemberCount() == 3, "An object of three members was expected");
            Item item{utf8(member(value, "label")), number(member(value, "score")), {}};
            Json const& values = member(value, "values");
            require(values.IsArray(), "An array of values was expected");
            fill(item.values, values.GetArray(), number);
            return Cell(std::move(item));
        }
        LargeForm const form = large_form(value, "int32");
        require(form.rows == 1 && form.columns == 1, "An int32 scalar was expected");
        Json const& element = *elements(form).Begin();
        require(element.IsInt(), "An int32 was expected");
        return Cell(std::in_place_type<std::int32_t>, element.GetInt());
    }
    case rapidjson::kNullType: break;
    }
    throw std::runtime_error("A cell holds null");
}

Cells large_cell(Json const& root)
{
    LargeForm const form = large_form(root, "cell");
    Cells cells{form.rows, form.columns, {}};
    fill(cells.values, elements(form), cell);
    return cells;
}

} // namespace

Containers read_with_rapidjson(DocumentId id, std::string const& text)
{
    rapidjson::Document document;
    document.Parse<rapidjson::kParseFullPrecisionFlag>(text.data(), text.size());
    require(!document.HasParseError(), "RapidJSON rejected the document");
    switch (id) {
    case DocumentId::large_double: return large_doubles(document);
    case DocumentId::large_int64: return large_int64(document);
    case DocumentId::rows_double: return nested_rows(document);
    case DocumentId::large_string: return large_strings(document);
    case DocumentId::large_struct: return large_struct(document);
    case DocumentId::large_cell: return large_cell(document);
    case DocumentId::strings:
    case DocumentId::records: break;
    }
    throw std::runtime_error("The document has no containers");
}

} // namespace zq::bench
