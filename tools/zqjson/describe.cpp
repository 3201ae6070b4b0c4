// How zqjson shows an array: its size and its class, and one level of what it holds.
#include "describe.hpp"

#include <foundation/zorbaldata/array_type.hpp>
#include <foundation/zorbaldata/enum_array.hpp>
#include <foundation/zorbaldata/struct_array.hpp>
#include <foundation/zorbaldata/typed_array.hpp>
#include <foundation/zorbaldata/value_object_array.hpp>

#include <algorithm>
#include <string_view>

namespace zqjson {

namespace zd = foundation::zorbaldata;

namespace {

void add_line(std::string& text, std::string_view label, zd::Array const& inside)
{
    text += "\n  ";
    text += label;
    text += ": ";
    text += summary(inside);
}

} // namespace

std::string summary(zd::Array const& array)
{
    std::string text;
    for (unsigned long dimension : array.getDimensions()) {
        if (!text.empty())
            text += 'x';
        text += std::to_string(dimension);
    }
    text += ' ';
    text += zd::getTypeName(array.getType());
    if (array.getType() == zd::ArrayType::ENUM)
        text += ' ' + zd::EnumArray(array).getClassName();
    if (array.getType() == zd::ArrayType::VALUE_OBJECT)
        text += ' '
            + zd::ValueObjectArray(array).getClassInfo().getClassIdentifier().getFullyQualifiedClassName();
    return text;
}

std::string describe(zd::Array const& array)
{
    std::string text = summary(array);
    switch (array.getType()) {
    case zd::ArrayType::STRUCT:
        if (array.getNumberOfElements() == 1) {
            zd::StructArray const structure(array);
            zd::StructElement const element = structure[0];
            for (zd::ZorbalFieldIdentifier const& field : structure.getFieldNames())
                add_line(text, field.getString(), element[field.getString()]);
        }
        break;
    case zd::ArrayType::VALUE_OBJECT:
        if (array.getNumberOfElements() == 1) {
            zd::ValueObject const object = zd::ValueObjectArray(array)[0];
            for (zd::Property const& property : object)
                add_line(text, property.getIdentifier().getPropertyName(), property.castToArray());
        }
        break;
    case zd::ArrayType::CELL: {
        zd::TypedArray<zd::Array> const cells(array);
        unsigned long const count = cells.getNumberOfElements();
        unsigned long const shown = std::min(count, described_cell_entries);
        for (unsigned long entry = 0; entry < shown; ++entry)
            add_line(text, std::to_string(entry + 1), cells[entry]);
        if (count > shown)
            text += "\n  ... " + std::to_string(count - shown) + " more";
        break;
    }
    default:
        break;
    }
    return text;
}

} // namespace zqjson
