// How zqjson shows an array.
#include "describe.hpp"

#include <foundation/zorbaldata/array_type.hpp>
#include <foundation/zorbaldata/enum_array.hpp>
#include <foundation/zorbaldata/value_object_array.hpp>

namespace zqjson {

std::string describe(foundation::zorbaldata::Array const& array)
{
    namespace zd = foundation::zorbaldata;
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

} // namespace zqjson
