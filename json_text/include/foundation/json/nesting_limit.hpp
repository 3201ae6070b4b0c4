// How deeply the JSON text reader lets arrays and objects nest.
#pragma once

namespace foundation::json {

/// The most arrays and objects that may be open at one point of a JSON text: "[[1]]" opens 2.
/// A bracket or brace that would open one level more stops the reading with NestingTooDeep at that
/// byte; typed integer data in "zqdata" count as a level like any array. The reader recurses once per
/// level, taking at most about 0.8 KiB of stack a level when optimised and 2.2 KiB under
/// AddressSanitizer, so at the limit it stays far inside a default 8 MiB stack. The readers of the
/// notation, which recurse once per level over the trees read with larger frames, refuse deeper trees
/// that callers build themselves.
inline constexpr unsigned max_nesting_depth = 1000;

} // namespace foundation::json
