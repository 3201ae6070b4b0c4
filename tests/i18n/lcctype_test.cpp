// The locale-independent ASCII character classes.
#include <yx/i18n/lcctype.hpp>

#include <gtest/gtest.h>

#include <string_view>

using yx::i18n::lcctype::isdigit_ascii;
using yx::i18n::lcctype::isspace_ascii;

// The text reader relies on evaluating these at compile time.
static_assert(isdigit_ascii(U'7') && !isdigit_ascii(U'a'));
static_assert(isspace_ascii(U'\v') && !isspace_ascii(U'_'));

TEST(AsciiClasses, ClassifyEveryAsciiCharacterAndNothingBeyond)
{
    constexpr std::u32string_view digits = U"0123456789";
    constexpr std::u32string_view spaces = U" \t\n\v\f\r";
    for (char32_t c = 0; c < 0x80; ++c) {
        EXPECT_EQ(isdigit_ascii(c), digits.find(c) != std::u32string_view::npos) << unsigned(c);
        EXPECT_EQ(isspace_ascii(c), spaces.find(c) != std::u32string_view::npos) << unsigned(c);
    }
    // Characters that some locale or Unicode table counts as digits or spaces, and values that equal
    // an ASCII digit or space in their low byte or low seven bits.
    char32_t const beyond[] = {0x85, 0xA0, 0xB0, 0xB9, 0x109, 0x120, 0x130, 0x660, 0x1680, 0x2003, 0x2028,
        0x2029, 0x202F, 0x3000, 0xFEFF, 0xFF10, 0xFF19, 0x10030, 0x1D7CE, 0xFFFFFF20};
    for (char32_t c : beyond) {
        EXPECT_FALSE(isdigit_ascii(c)) << std::hex << unsigned(c);
        EXPECT_FALSE(isspace_ascii(c)) << std::hex << unsigned(c);
    }
    // Callers also pass plain chars of UTF-8 text, which are negative for bytes from 0x80 on.
    for (unsigned byte = 0x80; byte <= 0xFF; ++byte) {
        EXPECT_FALSE(isdigit_ascii(static_cast<char>(byte))) << byte;
        EXPECT_FALSE(isspace_ascii(static_cast<char>(byte))) << byte;
    }
}
