#pragma once

#include <QAnyStringView>

#include <cstddef>

/// The numbers of text formats: exactly the answers of `QString::toFloat` and of
/// `StringConversions::stringToInt`, without building a `QString` for the spellings that exporters write.
///
/// Locale-independent, stateless, never fails other than by its result.
namespace numbers {

/// `QString(text).toFloat(ok)`: rounds to double, then to single precision; surrounding white space is
/// skipped; "nan" and "inf" are numbers. A failure gives 0, an overflow an infinity, both with `*ok` false.
float toFloat(QAnyStringView text, bool* ok);

/// `StringConversions::stringToInt(text, 0)`: the decimal integer, 0 where `text` holds none.
int toInt(QAnyStringView text);

/// Takes a number in its plain spelling, [+-]digits[.digits][e[+-]digits], from the start of [next, end) and
/// moves `next` behind it. False, with `next` anywhere and `value` as it was, where there is none or where
/// only Qt knows the answer; what was taken gives the same with `toFloat`.
bool takeFloat(char const*& next, char const* end, float& value);

/// The value of a digit; more than 9 for other characters.
inline unsigned digitOf(char c)
{
    return static_cast<unsigned char>(c) - static_cast<unsigned>('0');
}

/// Takes up to nine digits from the start of [next, end) and moves `next` behind them; 0 where there is none.
/// What was taken gives the same with `toInt`.
inline int takeDigits(char const*& next, char const* end)
{
    constexpr std::ptrdiff_t mostDigits = 9;
    char const* digit = next;
    char const* const last = end - digit > mostDigits ? digit + mostDigits : end;
    unsigned value = 0;
    for (; digit != last && digitOf(*digit) <= 9; ++digit)
        value = value * 10 + digitOf(*digit);
    next = digit;
    return static_cast<int>(value);
}

} // namespace numbers
