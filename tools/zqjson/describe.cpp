// How zqjson shows an array.
#include "describe.hpp"

#include <foundation/zorbaldata/array_type.hpp>
#include <foundation/zorbaldata/enum_array.hpp>

namespace zqjson {

std::string describe(foundation::zorbaldata::Array const& array)
{
    using foundation::zorbaldata::ArrayType;
    std::string text;
    for (unsigned long dimension : array.getDimensions()) {
        if (!text.empty())
            text += 'x';
        text += std::to_string(dimension);
    }
    text += ' ';
    text += foundation::zorbaldata::getTypeName(array.getType());
    if (array.getType() == ArrayType::ENUM)
        text += ' ' + foundation::zorbaldata::EnumArray(array).getClassName();
    return text;
}

} // namespace zqjson
