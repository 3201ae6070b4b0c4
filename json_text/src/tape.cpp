// Handing the numbers of a document's data over to the array made of them.
#include <foundation/json/detail/tape.hpp>

#include <algorithm>

namespace foundation::json::detail {

void* Tape::take_root_data(std::uint32_t index) const noexcept
{
    TapeSlot const& data = slots_[index];
    if (data.kind != array_kind || !data.packed || !data.integer_token || slots_[0].kind != object_kind)
        return nullptr;
    // Only the root object's "zqdata" is read once whatever the document holds; data nested deeper may
    // be read again, as the elements of a list of objects of several classes are.
    TapeMember const* const first = members(0);
    TapeMember const* const last = first + slots_[0].count;
    TapeMember const* const found = std::lower_bound(
        first, last, std::string_view("zqdata"), [this](TapeMember const& m, std::string_view k) { return key(m) < k; });
    if (found == last || key(*found) != "zqdata" || found->value != index)
        return nullptr;
    return blocks_[data.payload]->release();
}

} // namespace foundation::json::detail
