// Generators of the benchmark documents.
#include "documents.hpp"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <random>
#include <system_error>

namespace zq::bench {
namespace {

// mt19937_64's output is fixed by the standard, unlike the library's distributions, so the
// numbers below are derived from its raw bits to give the same documents on every toolchain.
class Bits {
public:
    explicit Bits(std::uint64_t seed) : engine_(seed) {}

    std::uint64_t next() { return engine_(); }

    // The modulo bias is far below anything a benchmark can notice.
    std::uint64_t below(std::uint64_t n) { return next() % n; }

    // Uniform in [0, 1), all 53 bits of the significand random.
    double unit() { return static_cast<double>(next() >> 11) * 0x1.0p-53; }

private:
    std::mt19937_64 engine_;
};

template <class Number>
void append_number(std::string& out, Number n)
{
    std::array<char, 32> buffer;
    auto const [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), n);
    (void)error; // 32 characters hold any double or int64.
    out.append(buffer.data(), end);
}

// Mostly values of everyday size, whose shortest forms run to 16 or 17 digits; one in ten has a
// large binary exponent, so the reader also meets long exponents, both signs of them.
double mixed_double(Bits& bits)
{
    auto const kind = bits.below(20);
    if (kind > 1)
        return (bits.unit() * 2.0 - 1.0) * 1e6;
    double const significand = (bits.next() & 1) ? -(1.0 + bits.unit()) : 1.0 + bits.unit();
    int const exponent = 60 + static_cast<int>(bits.below(940));
    return std::ldexp(significand, kind == 0 ? -exponent : exponent);
}

void append_short_string(std::string& out, Bits& bits)
{
    static constexpr std::string_view alphabet = "abcdefghijklmnopqrstuvwxyz0123456789";
    out += '"';
    auto const length = 3 + bits.below(8);
    for (std::uint64_t i = 0; i < length; ++i) {
        if (i == 1) {
            // A few strings leave the reader's plain-byte path, as real names and labels do.
            auto const special = bits.below(32);
            if (special == 0)
                out += "\\\"";
            else if (special == 1)
                out += "\xC3\xA9";
        }
        out += alphabet[bits.below(alphabet.size())];
    }
    out += '"';
}

// Text of min_length to max_length characters: mostly letters, digits and spaces, with now and
// then an escape (a quote, a backslash, a line break or a \u escape) or a character of two, three or
// four UTF-8 bytes, so every path of string decoding is taken.
void append_text(std::string& out, Bits& bits, std::uint64_t min_length, std::uint64_t max_length)
{
    static constexpr std::string_view alphabet = "abcdefghijklmnopqrstuvwxyz0123456789 ";
    static constexpr std::array<std::string_view, 8> specials = {
        "\\\"", "\\\\", "\\n", "\\u00fc", "\xC3\xA9", "\xC3\x9F", "\xE2\x82\xAC", "\xF0\x9F\x99\x82"};
    out += '"';
    auto const length = min_length + bits.below(max_length - min_length + 1);
    for (std::uint64_t i = 0; i < length; ++i) {
        if (bits.below(16) == 0)
            out += specials[bits.below(specials.size())];
        else
            out += alphabet[bits.below(alphabet.size())];
    }
    out += '"';
}

// Settings take few digits; measurements all of them.
double quarter_step(Bits& bits)
{
    return static_cast<double>(static_cast<std::int64_t>(bits.below(8001)) - 4000) * 0.25;
}

double measurement(Bits& bits) { return (bits.unit() * 2.0 - 1.0) * 1e3; }

// A JSON array of count elements; append_element gets the index of each.
template <class AppendElement>
void append_list(std::string& out, std::size_t count, AppendElement append_element)
{
    out += '[';
    for (std::size_t i = 0; i < count; ++i) {
        if (i != 0)
            out += ',';
        append_element(out, i);
    }
    out += ']';
}

template <class AppendElement>
std::string large_form(std::size_t count, std::string_view type, std::size_t bytes_per_element,
                       AppendElement append_element)
{
    std::string out;
    out.reserve(count * bytes_per_element + 64);
    out += "{\"zqdata\":";
    append_list(out, count, [&](std::string& o, std::size_t) { append_element(o); });
    out += ",\"zqsize\":[1,";
    append_number(out, count);
    out += "],\"zqtype\":\"";
    out += type;
    out += "\"}";
    return out;
}

} // namespace

std::string large_form_doubles(std::size_t count)
{
    Bits bits(1);
    return large_form(count, "double", 24, [&](std::string& out) { append_number(out, mixed_double(bits)); });
}

std::string large_form_int64(std::size_t count)
{
    Bits bits(2);
    return large_form(count, "int64", 20, [&](std::string& out) {
        append_number(out, static_cast<std::int64_t>(bits.next()) >> bits.below(64));
    });
}

std::string nested_rows(std::size_t rows, std::size_t columns)
{
    Bits bits(3);
    std::string out;
    out.reserve(rows * columns * 24 + rows * 3 + 2);
    append_list(out, rows, [&](std::string& row, std::size_t) {
        append_list(row, columns, [&](std::string& o, std::size_t) { append_number(o, mixed_double(bits)); });
    });
    return out;
}

std::string short_strings(std::size_t count)
{
    Bits bits(4);
    std::string out;
    out.reserve(count * 12 + 2);
    append_list(out, count, [&](std::string& o, std::size_t) { append_short_string(o, bits); });
    return out;
}

std::string records(std::size_t count)
{
    Bits bits(5);
    std::string out;
    out.reserve(count * 96 + 2);
    append_list(out, count, [&](std::string& o, std::size_t i) {
        o += "{\"id\":";
        append_number(o, i + 1);
        o += ",\"name\":";
        append_short_string(o, bits);
        o += ",\"x\":";
        append_number(o, quarter_step(bits));
        o += ",\"y\":";
        append_number(o, measurement(bits));
        o += (bits.next() & 1) ? ",\"ok\":true" : ",\"ok\":false";
        o += ",\"tag\":\"t";
        append_number(o, bits.below(8));
        o += "\"}";
    });
    return out;
}

std::string large_form_strings(std::size_t count)
{
    Bits bits(4);
    return large_form(count, "string", 20, [&](std::string& out) {
        if (bits.below(20) == 0)
            out += "{\"zqdata\":\"missing\"}";
        else
            append_text(out, bits, 4, 24);
    });
}

std::string large_form_struct(std::size_t count)
{
    Bits bits(6);
    std::string out;
    out.reserve(count * 300 + 128);
    // The fields in byte order of their names, as the writers emit them.
    out += "{\"zqdata\":{\"id\":";
    append_list(out, count, [](std::string& o, std::size_t i) { append_number(o, i + 1); });
    out += ",\"name\":";
    append_list(out, count, [&](std::string& o, std::size_t) { append_short_string(o, bits); });
    out += ",\"ok\":";
    append_list(out, count, [&](std::string& o, std::size_t) { o += (bits.next() & 1) ? "true" : "false"; });
    out += ",\"tag\":";
    append_list(out, count, [&](std::string& o, std::size_t) {
        o += "\"t";
        append_number(o, bits.below(8));
        o += '"';
    });
    out += ",\"text\":";
    append_list(out, count, [&](std::string& o, std::size_t) { append_text(o, bits, 100, 340); });
    out += ",\"y\":";
    append_list(out, count, [&](std::string& o, std::size_t) { append_number(o, measurement(bits)); });
    out += "},\"zqsize\":[";
    append_number(out, count);
    out += ",1],\"zqtype\":\"struct\"}";
    return out;
}

std::string large_form_cell(std::size_t count)
{
    Bits bits(7);
    auto const measurements = [&](std::string& o, std::size_t) { append_number(o, measurement(bits)); };
    return large_form(count, "cell", 120, [&, i = std::size_t{0}](std::string& o) mutable {
        switch (i++ % 8) {
        case 0: append_number(o, measurement(bits)); break;
        case 1: append_text(o, bits, 20, 60); break;
        case 2: o += (bits.next() & 1) ? "true" : "false"; break;
        case 3:
            append_list(o, 3, [&](std::string& row, std::size_t) { append_number(row, quarter_step(bits)); });
            break;
        case 4:
            o += "{\"zqdata\":[";
            append_number(o, static_cast<std::int32_t>(bits.next()) >> bits.below(32));
            o += "],\"zqsize\":[1,1],\"zqtype\":\"int32\"}";
            break;
        case 5:
            o += "{\"label\":";
            append_short_string(o, bits);
            o += ",\"score\":";
            append_number(o, measurement(bits));
            o += ",\"values\":";
            append_list(o, 8, measurements);
            o += '}';
            break;
        case 6: append_list(o, 3, [&](std::string& rows, std::size_t) { append_list(rows, 4, measurements); }); break;
        default: append_text(o, bits, 100, 340); break;
        }
    });
}

std::string const& document(DocumentId id)
{
    static std::array<std::string, 8> texts;
    auto& text = texts[static_cast<std::size_t>(id)];
    if (text.empty()) {
        switch (id) {
        case DocumentId::large_double: text = large_form_doubles(3'000'000); break;
        case DocumentId::large_int64: text = large_form_int64(3'000'000); break;
        case DocumentId::rows_double: text = nested_rows(1'000, 3'000); break;
        case DocumentId::strings: text = short_strings(1'000'000); break;
        case DocumentId::records: text = records(100'000); break;
        case DocumentId::large_string: text = large_form_strings(1'000'000); break;
        case DocumentId::large_struct: text = large_form_struct(100'000); break;
        case DocumentId::large_cell: text = large_form_cell(200'000); break;
        }
    }
    return text;
}

} // namespace zq::bench
