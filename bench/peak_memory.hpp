// The memory a piece of work needs at its peak, measured in a child process so that the allocator's
// caches and the other benchmarks leave no trace in it.
#pragma once

#include <cstddef>
#include <functional>

namespace zq::bench {

/// How far the resident memory rose above where it stood when work began, in bytes, at work's peak.
/// work runs once, in a forked child.
/// @throws std::runtime_error when the child cannot be made or cannot measure.
std::size_t peak_growth(std::function<void()> const& work);

} // namespace zq::bench
