// The checks that refuse an array too large to count or to hold before anything is allocated.
#include "size_limits.hpp"

#include "type_names.hpp"

#include <foundation/zorbaldata/exceptions.hpp>

#include <algorithm>

namespace foundation::zorbaldata::detail {

void refuseSize(std::string const& subject, std::string const& reason)
{
    throw EArrayTooLarge("Cannot create " + subject + ": " + reason + ".");
}

unsigned long elementCount(ArrayType type, std::span<unsigned long const> dimensions)
{
    // A zero makes an empty array, however large the other dimensions are.
    if (std::find(dimensions.begin(), dimensions.end(), 0UL) != dimensions.end())
        return 0;
    unsigned long count = 1;
    for (unsigned long d : dimensions)
        count = checkedProduct(count, d, [&] { return arrayText(type, dimensions); });
    return count;
}

} // namespace foundation::zorbaldata::detail
