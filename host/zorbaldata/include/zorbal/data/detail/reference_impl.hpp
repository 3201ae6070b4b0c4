// The place of one element, as references hold it and the raw object operations take it.
#pragma once

namespace zorbal::data::detail {

class SlotOwner;

/// Where one element lies: the container that holds it and its index there. It does not keep the
/// container alive, so it is valid as long as the handle it was taken from.
struct ReferenceImpl {
    SlotOwner* owner = nullptr;
    unsigned long index = 0;
};

} // namespace zorbal::data::detail
