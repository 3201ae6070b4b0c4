// The output of the writers that appends JSON text to one string.
#include <foundation/zorbaldata/json/detail/text_output.hpp>

#include <foundation/json/detail/utf8.hpp>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <numeric>

namespace foundation::zorbaldata::json::detail {

namespace {

namespace text = foundation::json::detail;

// Four code units are tested and narrowed at once: ASCII text is the common case, and it is copied a
// word at a time.
constexpr std::uint64_t lanes(std::uint64_t unit) { return unit * 0x0001000100010001u; }
constexpr std::uint64_t lane_tops = lanes(0x8000);

// Whether some 16-bit lane of a word whose lanes are all below 0x8000 is below n.
constexpr bool some_lane_below(std::uint64_t word, std::uint64_t n)
{
    return ((word - lanes(n)) & ~word & lane_tops) != 0;
}

// Whether none of four units needs more than a copy of its low byte: all are ASCII, and none is a
// control character, the quote or the backslash.
constexpr bool plain_units(std::uint64_t word)
{
    return (word & lanes(0xFF80)) == 0 && !some_lane_below(word, 0x20)
        && !some_lane_below(word ^ lanes('"'), 1) && !some_lane_below(word ^ lanes('\\'), 1);
}

// Copies the units from in up to the first that needs more than a copy, or to stop, and returns where
// it stopped.
char16_t const* plain_run(char16_t const* in, char16_t const* stop, char*& out)
{
    if constexpr (std::endian::native == std::endian::little) {
        while (stop - in >= 4) {
            std::uint64_t word;
            std::memcpy(&word, in, sizeof word);
            if (!plain_units(word))
                break;
            word = (word | (word >> 8)) & 0x0000FFFF0000FFFFu;
            auto const bytes = static_cast<std::uint32_t>(word | (word >> 16));
            std::memcpy(out, &bytes, sizeof bytes);
            out += 4;
            in += 4;
        }
    }
    for (; in < stop; ++in) {
        if (*in >= 0x80 || text::bytes_to_escape[*in])
            break;
        *out++ = static_cast<char>(*in);
    }
    return in;
}

// Writes the unit at in, which needs an escape or more than one byte, and returns the unit after it.
// The text is what the serializer gives for the UTF-8 of the units: a control character, the quote and
// the backslash escaped; a lone low surrogate escaped too, as the serializer escapes its three bytes;
// anything else in UTF-8, a lone high surrogate in its three bytes, which read back as it.
char16_t const* put_special(char16_t const* in, char16_t const* end, char*& out)
{
    char16_t const unit = *in;
    if (unit < 0x80) {
        out += text::format_escape(out, static_cast<unsigned char>(unit));
        return in + 1;
    }
    if (unit >= 0xDC00 && unit < 0xE000) {
        text::format_unicode_escape(out, unit);
        out += 6;
        return in + 1;
    }
    return text::encode_utf8(in, end, out);
}

} // namespace

void text_output::begin_object(bool noted)
{
    open('{');
    objects_.push_back({used_, members_.size(), keys_.size(), noted, true});
}

void text_output::key(std::string_view name)
{
    open_object& object = objects_.back();
    if (object.noted && members_.size() > object.first_member) {
        members_.back().end = used_;
        if (!(key_of(members_.back()) < name))
            object.in_order = false;
    }
    separate();
    if (object.noted) {
        members_.push_back({keys_.size(), name.size(), used_, 0});
        keys_.append(name);
    }
    append_string(name);
    if (indent_ != 0)
        put(": ", 2);
    else
        put(':');
    state_ = state::after_key;
}

void text_output::end_object()
{
    open_object const object = objects_.back();
    objects_.pop_back();
    if (!object.in_order) {
        members_.back().end = used_;
        put_in_order(object);
    }
    members_.resize(object.first_member);
    keys_.resize(object.first_key);
    close('}');
}

// Rare: struct fields and properties come in the order of the array, which is seldom unsorted.
void text_output::put_in_order(open_object const& object)
{
    std::size_t const count = members_.size() - object.first_member;
    std::vector<std::size_t> order(count);
    std::iota(order.begin(), order.end(), object.first_member);
    std::stable_sort(order.begin(), order.end(),
        [this](std::size_t a, std::size_t b) { return key_of(members_[a]) < key_of(members_[b]); });
    std::string sorted;
    sorted.reserve(used_ - object.content);
    bool first = true;
    for (std::size_t i = 0; i < count; ++i) {
        member const& m = members_[order[i]];
        // Of equal keys the last written comes last in the stable order, and it is the one kept.
        if (i + 1 < count && key_of(m) == key_of(members_[order[i + 1]]))
            continue;
        if (!first)
            sorted += ',';
        first = false;
        if (indent_ != 0) {
            sorted += '\n';
            sorted.append(static_cast<std::size_t>(depth_) * indent_, ' ');
        }
        sorted.append(text_, m.begin, m.end - m.begin);
    }
    // Dropped repeats make the sorted text shorter, never longer, so it fits where the members stood.
    std::char_traits<char>::copy(text_.data() + object.content, sorted.data(), sorted.size());
    used_ = object.content + sorted.size();
}

void text_output::line_break()
{
    std::size_t const spaces = static_cast<std::size_t>(depth_) * indent_;
    char* const first = room(spaces + 1);
    first[0] = '\n';
    std::char_traits<char>::assign(first + 1, spaces, ' ');
    used_ += spaces + 1;
}

void text_output::grow(std::size_t n)
{
    // Room for some numbers at once, so that the zero-filling of resize is paid seldom; the capacity
    // itself grows geometrically, and past max_size resize throws std::length_error.
    constexpr std::size_t ahead = 4096;
    text_.resize(used_ + std::max(n, ahead));
}


void text_output::rollback(mark_type const& mark)
{
    used_ = mark.size;
    objects_.resize(mark.objects);
    members_.resize(mark.members);
    keys_.resize(mark.keys);
    depth_ = mark.depth;
    state_ = mark.last;
}

void text_output::string(std::u16string_view utf16)
{
    separate();
    put('"');
    // A unit takes at most six bytes (an escape); room is asked for a block at a time, so a long text
    // needs no more than its own length beyond what is written. A pair may end past its block: its
    // four bytes fit in the six asked for its first unit.
    constexpr std::size_t block = 1024;
    char16_t const* in = utf16.data();
    char16_t const* const end = in + utf16.size();
    while (in < end) {
        std::size_t const units = std::min(block, static_cast<std::size_t>(end - in));
        char* out = room(6 * units);
        char16_t const* const stop = in + units;
        while (in < stop) {
            in = plain_run(in, stop, out);
            if (in < stop)
                in = put_special(in, end, out);
        }
        used_ = static_cast<std::size_t>(out - text_.data());
    }
    put('"');
}

} // namespace foundation::zorbaldata::json::detail
