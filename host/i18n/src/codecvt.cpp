// The converters between UTF-8 and UTF-16.
#include <yx/i18n/codecvt.hpp>

#include <yx/i18n/cvt_exception.hpp>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>

namespace yx::i18n {

namespace {

using Input = CvtInvalidCharacter::Input;

void require_utf8(std::string const& encoding)
{
    if (encoding != "UTF-8" && encoding != "utf-8" && encoding != "UTF8" && encoding != "utf8")
        throw CvtUnsupportedEncoding(encoding);
}

// Out of line and cold so that the conversion loops stay small and the throw costs nothing until taken.
[[noreturn, gnu::cold, gnu::noinline]] void refuse(Input input, std::size_t offset)
{
    throw CvtInvalidCharacter(input, offset);
}

// Copies the ASCII run that starts at in[i] to out and returns where it ends. Most text, short or
// long, is mostly ASCII, so whole 64-bit words are tested at once; the mask has the bits that no
// ASCII unit sets. On a little-endian machine the first unit of a word is its lowest, so the trailing
// zero bits of the word's non-ASCII bits count the ASCII units before the first that is not one.
template <typename In, typename Out>
std::size_t copy_ascii(In const* in, std::size_t i, std::size_t length, Out*& out)
{
    constexpr std::size_t per_word = sizeof(std::uint64_t) / sizeof(In);
    constexpr std::uint64_t non_ascii = sizeof(In) == 1 ? 0x8080808080808080u : 0xFF80FF80FF80FF80u;
    auto const copy = [&](std::size_t units) {
        for (std::size_t k = 0; k < units; ++k)
            out[k] = static_cast<Out>(in[i + k]);
        out += units;
        i += units;
    };
    while (i < length) {
        std::size_t const units = std::min(per_word, length - i);
        std::uint64_t word = 0;
        if (units == per_word)
            std::memcpy(&word, in + i, sizeof word);
        else
            std::memcpy(&word, in + i, units * sizeof(In));
        std::uint64_t const high = word & non_ascii;
        if (high == 0) {
            if (units == per_word)
                copy(per_word);
            else
                copy(units);
            continue;
        }
        if constexpr (std::endian::native == std::endian::little) {
            copy(static_cast<std::size_t>(std::countr_zero(high)) / (8 * sizeof(In)));
        } else {
            while (in[i] < 0x80)
                copy(1);
        }
        break;
    }
    return i;
}

bool is_surrogate(char32_t c)
{
    return c >= 0xD800 && c <= 0xDFFF;
}

bool is_low_surrogate(char32_t c)
{
    return c >= 0xDC00 && c <= 0xDFFF;
}

} // namespace

codecvt_string_to_ustring::codecvt_string_to_ustring(std::string const& encoding, bool allow_surrogates)
    : allow_surrogates_(allow_surrogates)
{
    require_utf8(encoding);
}

codecvt_string_to_ustring::~codecvt_string_to_ustring() = default;

std::u16string codecvt_string_to_ustring::convert(char const* first, std::size_t length) const
{
    std::u16string out;
    convert_into(first, length, out);
    return out;
}

void codecvt_string_to_ustring::convert_into(char const* first, std::size_t length, std::u16string& out) const
{
    out.clear();
    if (length == 0)
        return;
    // No sequence yields more code units than it has bytes, so one allocation is enough, and none for
    // an out that held as long a text before.
    out.resize(length);
    auto const* in = reinterpret_cast<unsigned char const*>(first);
    char16_t* d = out.data();
    std::size_t i = 0;
    while ((i = copy_ascii(in, i, length, d)) < length) {
        unsigned const lead = in[i];
        std::size_t trail = 0;
        char32_t c = 0;
        // Narrowing the range of the second byte is what refuses overlong forms, values above
        // U+10FFFF and, unless allowed, surrogates; every later byte is any continuation byte.
        unsigned low = 0x80;
        unsigned high = 0xBF;
        if (lead >= 0xC2 && lead <= 0xDF) {
            trail = 1;
            c = lead & 0x1F;
        } else if (lead >= 0xE0 && lead <= 0xEF) {
            trail = 2;
            c = lead & 0x0F;
            if (lead == 0xE0)
                low = 0xA0;
            else if (lead == 0xED && !allow_surrogates_)
                high = 0x9F;
        } else if (lead >= 0xF0 && lead <= 0xF4) {
            trail = 3;
            c = lead & 0x07;
            if (lead == 0xF0)
                low = 0x90;
            else if (lead == 0xF4)
                high = 0x8F;
        } else {
            refuse(Input::utf8, i);
        }
        if (length - i <= trail || in[i + 1] < low || in[i + 1] > high)
            refuse(Input::utf8, i);
        c = (c << 6) | (in[i + 1] & 0x3Fu);
        for (std::size_t k = 2; k <= trail; ++k) {
            if ((in[i + k] & 0xC0u) != 0x80u)
                refuse(Input::utf8, i);
            c = (c << 6) | (in[i + k] & 0x3Fu);
        }
        i += trail + 1;
        if (c < 0x10000) {
            *d++ = static_cast<char16_t>(c);
        } else {
            c -= 0x10000;
            *d++ = static_cast<char16_t>(0xD800 | (c >> 10));
            *d++ = static_cast<char16_t>(0xDC00 | (c & 0x3FF));
        }
    }
    out.resize(static_cast<std::size_t>(d - out.data()));
}

codecvt_ustring_to_string::codecvt_ustring_to_string(std::string const& encoding, bool allow_surrogates)
    : allow_surrogates_(allow_surrogates)
{
    require_utf8(encoding);
}

codecvt_ustring_to_string::~codecvt_ustring_to_string() = default;

std::string codecvt_ustring_to_string::convert(char16_t const* first, std::size_t length) const
{
    std::string out;
    if (length == 0)
        return out;
    // Sizing by a quick count rather than at three bytes per unit keeps short results in the
    // string's own buffer and spares long ASCII texts two thirds of wasted, zero-filled memory.
    // The count is exact but for pairs, which it takes two bytes too long each.
    std::size_t bound = length;
    for (std::size_t k = 0; k < length; ++k)
        bound += (first[k] >= 0x80u) + (first[k] >= 0x800u);
    out.resize(bound);
    char* d = out.data();
    std::size_t i = 0;
    while ((i = copy_ascii(first, i, length, d)) < length) {
        char32_t c = first[i];
        if (c < 0x800) {
            *d++ = static_cast<char>(0xC0 | (c >> 6));
            *d++ = static_cast<char>(0x80 | (c & 0x3F));
            ++i;
            continue;
        }
        if (is_surrogate(c)) {
            if (c < 0xDC00 && length - i > 1 && is_low_surrogate(first[i + 1])) {
                c = 0x10000 + ((c - 0xD800) << 10) + (first[i + 1] - 0xDC00u);
                *d++ = static_cast<char>(0xF0 | (c >> 18));
                *d++ = static_cast<char>(0x80 | ((c >> 12) & 0x3F));
                *d++ = static_cast<char>(0x80 | ((c >> 6) & 0x3F));
                *d++ = static_cast<char>(0x80 | (c & 0x3F));
                i += 2;
                continue;
            }
            if (!allow_surrogates_)
                refuse(Input::utf16, i);
        }
        *d++ = static_cast<char>(0xE0 | (c >> 12));
        *d++ = static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        *d++ = static_cast<char>(0x80 | (c & 0x3F));
        ++i;
    }
    out.resize(static_cast<std::size_t>(d - out.data()));
    return out;
}

} // namespace yx::i18n
