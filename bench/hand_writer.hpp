// The writer a user would write by hand for the containers: std::to_chars straight into one growing
// string and a one-pass escaper, with the interface of RapidJSON's Writer so that the same walk drives it.
#pragma once

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zq::bench {

class HandWriter {
public:
    explicit HandWriter(std::string& out) : out_(out) {}

    void StartObject() { open('{'); }
    void EndObject() { close('}'); }
    void StartArray() { open('['); }
    void EndArray() { close(']'); }
    void Key(char const* text, unsigned size)
    {
        String(text, size);
        out_ += ':';
        after_key_ = true;
    }
    void String(char const* text, unsigned size)
    {
        separate();
        out_ += '"';
        std::size_t plain = 0;
        for (std::size_t i = 0; i < size; ++i) {
            auto const byte = static_cast<unsigned char>(text[i]);
            if (byte >= 0x20 && byte != '"' && byte != '\\')
                continue;
            out_.append(text + plain, i - plain);
            plain = i + 1;
            out_ += '\\';
            switch (byte) {
            case '"': out_ += '"'; break;
            case '\\': out_ += '\\'; break;
            case '\n': out_ += 'n'; break;
            case '\t': out_ += 't'; break;
            default: {
                char const hex[] = "0123456789abcdef";
                char const escape[] = {'u', '0', '0', hex[byte >> 4], hex[byte & 0xF]};
                out_.append(escape, sizeof escape);
            }
            }
        }
        out_.append(text + plain, size - plain);
        out_ += '"';
    }
    void Bool(bool value)
    {
        separate();
        out_ += value ? "true" : "false";
    }
    void Int(int value) { number(value); }
    void Int64(std::int64_t value) { number(value); }
    void Uint64(std::uint64_t value) { number(value); }
    void Double(double value) { number(value); }

private:
    template <class Number>
    void number(Number value)
    {
        separate();
        char buffer[32];
        out_.append(buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr);
    }
    void separate()
    {
        if (after_key_)
            after_key_ = false;
        else if (!first_.empty() && !first_.back())
            out_ += ',';
        if (!first_.empty())
            first_.back() = false;
    }
    void open(char bracket)
    {
        separate();
        out_ += bracket;
        first_.push_back(true);
    }
    void close(char bracket)
    {
        first_.pop_back();
        out_ += bracket;
    }

    std::string& out_;
    std::vector<bool> first_;
    bool after_key_ = false;
};

} // namespace zq::bench
