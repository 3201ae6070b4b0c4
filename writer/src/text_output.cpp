// The output of the writers that appends JSON text to one string.
#include <foundation/zorbaldata/json/detail/text_output.hpp>

#include <foundation/zorbaldata/json/detail/utf16_to_utf8.hpp>

#include <algorithm>
#include <numeric>

namespace foundation::zorbaldata::json::detail {

void text_output::begin_object()
{
    open('{');
    objects_.push_back({text_.size(), members_.size(), keys_.size(), true});
}

void text_output::key(std::string_view name)
{
    open_object& object = objects_.back();
    if (members_.size() > object.first_member) {
        members_.back().end = text_.size();
        if (!(key_of(members_.back()) < name))
            object.in_order = false;
    }
    separate();
    members_.push_back({keys_.size(), name.size(), text_.size(), 0});
    keys_.append(name);
    foundation::json::detail::write_string(text_, name);
    text_ += indent_ != 0 ? ": " : ":";
    state_ = state::after_key;
}

void text_output::end_object()
{
    open_object const object = objects_.back();
    objects_.pop_back();
    if (!object.in_order) {
        members_.back().end = text_.size();
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
    sorted.reserve(text_.size() - object.content);
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
    text_.resize(object.content);
    text_ += sorted;
}

void text_output::line_break()
{
    text_ += '\n';
    text_.append(static_cast<std::size_t>(depth_) * indent_, ' ');
}

void text_output::rollback(mark_type const& mark)
{
    text_.resize(mark.size);
    objects_.resize(mark.objects);
    members_.resize(mark.members);
    keys_.resize(mark.keys);
    depth_ = mark.depth;
    state_ = mark.last;
}

void text_output::string(std::u16string_view utf16)
{
    // Plain ASCII, the common text, is escaped from the code units directly, without a UTF-8 copy.
    if (std::all_of(utf16.begin(), utf16.end(), [](char16_t unit) { return unit < 0x80; })) {
        separate();
        text_ += '"';
        for (char16_t const unit : utf16) {
            auto const byte = static_cast<unsigned char>(unit);
            if (foundation::json::detail::bytes_to_escape[byte])
                foundation::json::detail::write_escape(text_, byte);
            else
                text_ += static_cast<char>(byte);
        }
        text_ += '"';
        return;
    }
    string(utf16_to_utf8(utf16));
}

} // namespace foundation::zorbaldata::json::detail
