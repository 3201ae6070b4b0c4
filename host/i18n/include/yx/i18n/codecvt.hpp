// Converters between UTF-8 byte strings and UTF-16 code unit strings.
#pragma once

#include <yx/i18n/cvt_exception.hpp>
#include <yx/i18n/export.hpp>

#include <cstddef>
#include <string>

namespace yx::i18n {

/// Decodes UTF-8 bytes into UTF-16 code units.
class YX_I18N_API codecvt_string_to_ustring {
public:
    /// A decoder for encoding; with allow_surrogates, the three-byte forms of U+D800..U+DFFF
    /// (ED A0..BF 80..BF) are accepted and each yields that single surrogate code unit.
    /// @throws CvtUnsupportedEncoding unless encoding is "UTF-8", "utf-8", "UTF8" or "utf8".
    codecvt_string_to_ustring(std::string const& encoding, bool allow_surrogates);
    virtual ~codecvt_string_to_ustring();

    /// The UTF-16 text of the length bytes at first (first may be null when length is 0).
    /// @throws CvtInvalidCharacter at the first byte of the first ill-formed sequence.
    virtual std::u16string convert(char const* first, std::size_t length) const;
    /// The same text written over out, whose room is kept for the next call: a caller decoding many
    /// strings allocates once, for the longest. On failure out holds no meaningful text.
    /// @throws CvtInvalidCharacter as convert.
    void convert_into(char const* first, std::size_t length, std::u16string& out) const;

private:
    bool allow_surrogates_;
};

/// Encodes UTF-16 code units as UTF-8 bytes.
class YX_I18N_API codecvt_ustring_to_string {
public:
    /// An encoder for encoding; with allow_surrogates, an unpaired surrogate code unit is written
    /// as its three-byte form instead of being refused. A high-low pair is always one code point.
    /// @throws CvtUnsupportedEncoding unless encoding is "UTF-8", "utf-8", "UTF8" or "utf8".
    codecvt_ustring_to_string(std::string const& encoding, bool allow_surrogates);
    virtual ~codecvt_ustring_to_string();

    /// The UTF-8 text of the length code units at first (first may be null when length is 0).
    /// @throws CvtInvalidCharacter at the first unpaired surrogate, unless surrogates are allowed.
    virtual std::string convert(char16_t const* first, std::size_t length) const;

private:
    bool allow_surrogates_;
};

} // namespace yx::i18n
