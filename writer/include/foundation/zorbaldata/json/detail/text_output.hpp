// The output of the writers that appends JSON text to one string.
#pragma once

#include <foundation/json/detail/text_format.hpp>

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace foundation::zorbaldata::json::detail {

/// Receives the writers' calls and appends their text, byte for byte what foundation::json::serialize
/// gives for the tree of the same calls, compact or indented. Members come in the order the writers call
/// them, so that failures come in that order too; an object whose keys did not come in strictly rising
/// byte order is put in order when it ends, and of a key that came twice only the last member stays.
class text_output {
public:
    /// Appends to text; an indent above 0 writes each element and member on a line of its own, indented
    /// by that many spaces for each level. The text is whole once finish has been called.
    explicit text_output(std::string& text, unsigned indent = 0)
        : text_(text), used_(text.size()), indent_(indent)
    {
    }

    void begin_array() { open('['); }
    void end_array() { close(']'); }
    void begin_object() { begin_object(true); }
    /// An object whose keys the writer gives in rising byte order, each once: the large forms.
    void begin_sorted_object() { begin_object(false); }
    void end_object();
    void key(std::string_view name);

    void value(bool b)
    {
        separate();
        if (b)
            put("true", 4);
        else
            put("false", 5);
    }
    void value(long long integer) { number(integer); }
    void value(unsigned long long integer) { number(integer); }
    void value(double x) { number(x); }
    void value(float x) { number(x); }
    void string(std::string_view utf8)
    {
        separate();
        append_string(utf8);
    }
    /// The UTF-16 text as a JSON string, encoded and escaped in one pass: the same bytes as the
    /// serializer gives for utf16_to_utf8 of the text.
    void string(std::u16string_view utf16);
    /// What string(std::u16string_view) takes: the text as it is, for it needs no conversion first.
    static std::u16string_view prepared(std::u16string_view utf16) noexcept { return utf16; }

    /// Cuts the text to what was written; the output is not to be used after.
    void finish() { text_.resize(used_); }

private:
    // What the text last received: the opening of a container, a key, or a value.
    enum class state { first, after_key, after_value };

public:
    /// Where the output stands, to go back to with rollback.
    struct mark_type {
        std::size_t size;
        std::size_t objects;
        std::size_t members;
        std::size_t keys;
        unsigned depth;
        state last;
    };
    mark_type mark() const noexcept
    {
        return {used_, objects_.size(), members_.size(), keys_.size(), depth_, state_};
    }
    /// Forgets everything written since the mark was taken.
    void rollback(mark_type const& mark);

private:
    // An object not yet ended: where its members' text begins, its first member and key, whether its
    // members are noted, and whether their keys came in order so far.
    struct open_object {
        std::size_t content;
        std::size_t first_member;
        std::size_t first_key;
        bool noted;
        bool in_order;
    };

    // One member of an open object: its key, in keys_, and where its text lies in the output.
    struct member {
        std::size_t key_at;
        std::size_t key_size;
        std::size_t begin;
        std::size_t end;
    };

    // The text is written in place: text_ is kept longer than used_, and what lies beyond used_ is room
    // for the next bytes, so a number goes straight from std::to_chars into the text.
    char* room(std::size_t n)
    {
        if (text_.size() - used_ < n)
            grow(n);
        return text_.data() + used_;
    }
    void grow(std::size_t n);
    void put(char c)
    {
        *room(1) = c;
        ++used_;
    }
    void put(char const* bytes, std::size_t n)
    {
        std::char_traits<char>::copy(room(n), bytes, n);
        used_ += n;
    }
    template <typename Number>
    void number(Number x)
    {
        namespace text = foundation::json::detail;
        separate();
        char* const first = room(text::number_buffer_size);
        char* last = nullptr;
        if constexpr (std::is_same_v<Number, double>)
            last = text::format_double(first, x);
        else if constexpr (std::is_same_v<Number, float>)
            last = text::format_float(first, x);
        else
            last = text::format_integer(first, x);
        used_ += static_cast<std::size_t>(last - first);
    }
    void append_string(std::string_view utf8)
    {
        // Keys and most texts need no escape: they are copied between their quotes in one go.
        auto const needs_escape
            = [](char c) { return foundation::json::detail::bytes_to_escape[static_cast<unsigned char>(c)]; };
        if (std::none_of(utf8.begin(), utf8.end(), needs_escape)) {
            char* const out = room(utf8.size() + 2);
            out[0] = '"';
            std::char_traits<char>::copy(out + 1, utf8.data(), utf8.size());
            out[utf8.size() + 1] = '"';
            used_ += utf8.size() + 2;
            return;
        }
        // The escaper's view of this output.
        struct sink {
            text_output& out;
            void append(char const* bytes, std::size_t n) { out.put(bytes, n); }
            void push_back(char c) { out.put(c); }
        } to_here{*this};
        foundation::json::detail::write_string(to_here, utf8);
    }
    void begin_object(bool noted);

    // Comes before every value and key: a comma unless it is the first of its container, and the line
    // break of the indented form; nothing between a key and its value.
    void separate()
    {
        if (state_ == state::after_value)
            put(',');
        if (state_ != state::after_key && indent_ != 0)
            line_break();
        state_ = state::after_value;
    }
    void line_break();
    void open(char bracket)
    {
        separate();
        put(bracket);
        ++depth_;
        state_ = state::first;
    }
    void close(char bracket)
    {
        --depth_;
        // An empty container closes on its own line in neither form.
        if (state_ != state::first && indent_ != 0)
            line_break();
        put(bracket);
        state_ = state::after_value;
    }
    std::string_view key_of(member const& m) const noexcept { return {keys_.data() + m.key_at, m.key_size}; }
    void put_in_order(open_object const& object);

    std::string& text_;
    std::size_t used_;
    unsigned const indent_;
    unsigned depth_ = 0;
    // The root value follows nothing, as a member's value follows its key.
    state state_ = state::after_key;
    std::vector<open_object> objects_;
    std::vector<member> members_;
    std::string keys_;
};

} // namespace foundation::zorbaldata::json::detail
