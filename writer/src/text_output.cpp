// The output of the writers that appends JSON text to one string.
#include <foundation/zorbaldata/json/detail/text_output.hpp>

#include <foundation/zorbaldata/json/detail/utf16_to_utf8.hpp>

#include <algorithm>
#include <numeric>

namespace foundation::zorbaldata::json::detail {

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
    // Plain ASCII, the common text, is escaped from the code units directly, without a UTF-8 copy; a
    // unit beyond ASCII sends the whole text back to the one conversion, from where it began.
    separate();
    std::size_t const start = used_;
    put('"');
    // An escape is at most six bytes; room is asked for a block at a time, so a long text needs no more
    // than its own length beyond what is written.
    constexpr std::size_t block = 1024;
    for (std::size_t at = 0; at < utf16.size(); at += block) {
        std::u16string_view const part = utf16.substr(at, block);
        char* out = room(6 * part.size());
        for (char16_t const unit : part) {
            if (unit >= 0x80) {
                used_ = start;
                append_string(utf16_to_utf8(utf16));
                return;
            }
            auto const byte = static_cast<unsigned char>(unit);
            if (foundation::json::detail::bytes_to_escape[byte])
                out += foundation::json::detail::format_escape(out, byte);
            else
                *out++ = static_cast<char>(byte);
        }
        used_ = static_cast<std::size_t>(out - text_.data());
    }
    put('"');
}

} // namespace foundation::zorbaldata::json::detail
