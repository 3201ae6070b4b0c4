// The failures that the writers report in their own words.
#include <foundation/zorbaldata/json/detail/writer_errors.hpp>

#include <stdexcept>

namespace foundation::zorbaldata::json::detail {

void throw_too_few_dimensions()
{
    throw std::runtime_error("Must have at least two dimensions");
}

void throw_count_mismatch()
{
    throw std::runtime_error("Number of elements did not match specified dimensions");
}

} // namespace foundation::zorbaldata::json::detail
