// The nesting shape of the small form.
#include <foundation/zorbaldata/json/detail/small_form.hpp>

#include <boost/numeric/conversion/cast.hpp>

namespace foundation::zorbaldata::json::detail {

Dimensions nesting_shape(Dimensions const& dimensions)
{
    Dimensions shape;
    shape.reserve(dimensions.size());
    // Each dimension passes through a double, the type of zqsize, so that a size the notation cannot
    // state is refused here rather than nested.
    for (unsigned long const dimension : dimensions)
        shape.push_back(boost::numeric_cast<unsigned long>(static_cast<double>(dimension)));
    // A column nests flat: [a,b,c] rather than [[a],[b],[c]].
    if (shape.size() == 2 && shape[1] == 1)
        shape.pop_back();
    return shape;
}

} // namespace foundation::zorbaldata::json::detail
