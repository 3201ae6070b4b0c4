// Reading number tokens with std::from_chars, which is exact and never looks at the locale.
#include <foundation/json/detail/string_to_double.hpp>

#include <cassert>
#include <charconv>
#include <cstring>
#include <limits>
#include <system_error>

namespace foundation::json::detail {

namespace {

bool is_digit(char c) noexcept
{
    return c >= '0' && c <= '9';
}

// from_chars reports a number beyond the range of double without giving a value, so the token
// itself tells which end was passed: the decimal exponent of its first non-zero digit is far
// above zero on overflow and far below on underflow.
double beyond_range(char const* p, char const* last) noexcept
{
    bool const negative = *p == '-';
    if (negative)
        ++p;
    // The token's value is 0.d... times ten to the power `position`, d its first non-zero digit.
    long long position = 0;
    bool non_zero = false;
    for (; p != last && is_digit(*p); ++p) {
        if (non_zero)
            ++position;
        else if (*p != '0') {
            non_zero = true;
            position = 1;
        }
    }
    if (p != last && *p == '.') {
        for (++p; p != last && is_digit(*p); ++p) {
            if (non_zero)
                continue;
            if (*p == '0')
                --position;
            else
                non_zero = true;
        }
    }
    long long exponent = 0;
    bool negative_exponent = false;
    if (p != last && (*p == 'e' || *p == 'E')) {
        ++p;
        if (p != last && (*p == '+' || *p == '-'))
            negative_exponent = *p++ == '-';
        // Saturates: any exponent this large is out of range either way, and cannot overflow.
        for (; p != last && is_digit(*p); ++p)
            if (exponent < 1'000'000'000'000LL)
                exponent = exponent * 10 + (*p - '0');
    }
    double magnitude = 0.0;
    if (non_zero && position + (negative_exponent ? -exponent : exponent) > 0)
        magnitude = std::numeric_limits<double>::infinity();
    return negative ? -magnitude : magnitude;
}

} // namespace

double string_to_double(char const* first, char const* last) noexcept
{
    double value = 0.0;
    [[maybe_unused]] auto const [end, error] = std::from_chars(first, last, value);
    assert(end == last && error != std::errc::invalid_argument);
    if (error == std::errc::result_out_of_range)
        return beyond_range(first, last);
    return value;
}

double string_to_double(char const* token) noexcept
{
    return string_to_double(token, token + std::strlen(token));
}

} // namespace foundation::json::detail
