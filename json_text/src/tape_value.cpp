// The tree of values of a tape, for the callers of the text reader that want one.
#include <foundation/json/detail/tape.hpp>

#include <map>
#include <string>
#include <vector>

namespace foundation::json::detail {

namespace {

Value packed_value(Tape const& tape, std::uint32_t index, std::uint32_t ordinal)
{
    switch (tape.slot(index).packed) {
    case packed_int64: return Value(static_cast<long long>(tape.word(index, ordinal)));
    case packed_uint64: return Value(static_cast<unsigned long long>(tape.word(index, ordinal)));
    default: return Value(tape.packed_number(index, ordinal));
    }
}

} // namespace

// The recursion is as deep as the document, which the reader has bounded.
Value tape_to_value(Tape const& tape, std::uint32_t index)
{
    TapeSlot const& slot = tape.slot(index);
    switch (slot.kind) {
    case Tape::null_kind: return Value(Null{});
    case Tape::bool_kind: return Value(slot.payload != 0);
    case Tape::number_kind: return Value(tape.number(index));
    case Tape::string_kind: return Value(std::string(tape.string(index)));
    case Tape::array_kind: {
        Array elements;
        elements.reserve(slot.count);
        if (slot.packed) {
            for (std::uint32_t i = 0; i != slot.count; ++i)
                elements.push_back(packed_value(tape, index, i));
        } else {
            for (std::uint32_t element = index + 1; element != slot.payload; element = tape.next(element))
                elements.push_back(tape_to_value(tape, element));
        }
        return Value(std::move(elements));
    }
    case Tape::object_kind: {
        Object entries;
        TapeMember const* const members = tape.members(index);
        for (std::uint32_t i = 0; i != slot.count; ++i)
            entries.emplace_hint(entries.end(), tape.key(members[i]), tape_to_value(tape, members[i].value));
        return Value(std::move(entries));
    }
    case Tape::int64_kind: return Value(static_cast<long long>(slot.payload));
    case Tape::uint64_kind: return Value(static_cast<unsigned long long>(slot.payload));
    default: return Value();
    }
}

} // namespace foundation::json::detail
