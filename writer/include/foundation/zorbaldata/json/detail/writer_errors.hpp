// The failures that the writers report in their own words.
#pragma once

namespace foundation::zorbaldata::json::detail {

/// @throws std::runtime_error "Must have at least two dimensions", always.
[[noreturn]] void throw_too_few_dimensions();

/// @throws std::runtime_error "Number of elements did not match specified dimensions", always.
[[noreturn]] void throw_count_mismatch();

} // namespace foundation::zorbaldata::json::detail
