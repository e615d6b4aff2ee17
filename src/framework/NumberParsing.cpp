#include "framework/NumberParsing.h"

#include "inhouse/fundamentals/StringConversions.h"

#include <QString>

#include <array>
#include <cfloat>
#include <charconv>
#include <cmath>
#include <optional>
#include <version>

namespace {

// A power of ten up to 10^22 and an integer up to 2^53 are exact as doubles, so their product or quotient is
// rounded once and hence correctly. This holds where doubles are computed as doubles.
constexpr bool exactDoubles = FLT_EVAL_METHOD == 0;
constexpr std::array<double, 23> powersOfTen = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr int greatestExactPower = powersOfTen.size() - 1;
constexpr quint64 greatestExactInteger = quint64(1) << 53;
// 19 digits fit into 64 bits whatever they are.
constexpr int mostDigits = 19;
constexpr int mostExponentDigits = 4;
constexpr qsizetype mostPlainIntegerDigits = 9;

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// [+-]digits[.digits][e[+-]digits], at least one digit before or after the point.
struct Decimal
{
    char const* begin; // behind a plus sign, which std::from_chars does not take
    char const* end;
    quint64 digits = 0;
    int exponent = 0;
    bool isNegative = false;
};

int readDigits(char const*& next, char const* end, quint64& digits)
{
    char const* const first = next;
    for (; next != end && isDigit(*next) && next - first <= mostDigits; ++next)
        digits = digits * 10 + static_cast<quint64>(*next - '0');
    return static_cast<int>(next - first);
}

bool readSign(char const*& next, char const* end)
{
    bool const isNegative = next != end && *next == '-';
    if (isNegative || (next != end && *next == '+'))
        ++next;
    return isNegative;
}

// False where the text after the digits is no exponent. A text of that kind is never a number.
bool readExponent(char const* next, char const* end, int& exponent)
{
    if (next == end)
        return true;
    if (*next != 'e' && *next != 'E')
        return false;
    ++next;
    bool const isNegative = readSign(next, end);
    quint64 value = 0;
    int const count = readDigits(next, end, value);
    if (count == 0 || count > mostExponentDigits || next != end)
        return false;
    exponent += isNegative ? -static_cast<int>(value) : static_cast<int>(value);
    return true;
}

std::optional<Decimal> scanDecimal(char const* next, char const* end)
{
    Decimal result{next, end};
    if (next != end && *next == '+')
        ++result.begin;
    result.isNegative = readSign(next, end);
    int count = readDigits(next, end, result.digits);
    if (next != end && *next == '.') {
        ++next;
        int const decimals = readDigits(next, end, result.digits);
        result.exponent = -decimals;
        count += decimals;
    }
    if (count == 0 || count > mostDigits || !readExponent(next, end, result.exponent))
        return std::nullopt;
    return result;
}

std::optional<double> toDouble(Decimal const& decimal)
{
    if (exactDoubles && decimal.digits <= greatestExactInteger &&
        std::abs(decimal.exponent) <= greatestExactPower) {
        auto const digits = static_cast<double>(decimal.digits);
        double const value = decimal.exponent < 0
                                 ? digits / powersOfTen[static_cast<unsigned>(-decimal.exponent)]
                                 : digits * powersOfTen[static_cast<unsigned>(decimal.exponent)];
        return decimal.isNegative ? -value : value;
    }
#if defined(__cpp_lib_to_chars) && __cpp_lib_to_chars >= 201611L
    double value = 0;
    auto const [end, problem] = std::from_chars(decimal.begin, decimal.end, value);
    if (problem == std::errc() && end == decimal.end)
        return value;
#endif
    return std::nullopt;
}

std::optional<float> toPlainFloat(QLatin1StringView text)
{
    std::optional<Decimal> const decimal = scanDecimal(text.begin(), text.end());
    std::optional<double> const value = decimal ? toDouble(*decimal) : std::nullopt;
    if (!value)
        return std::nullopt;
    // What is too small or too great for single precision is judged by Qt.
    double const size = std::fabs(*value);
    bool const isZero = decimal->digits == 0;
    if (!isZero && (size < double(FLT_MIN) || size > double(FLT_MAX)))
        return std::nullopt;
    return static_cast<float>(*value);
}

template <typename OtherView>
std::optional<float> toPlainFloat(OtherView)
{
    return std::nullopt;
}

std::optional<int> toPlainInt(QLatin1StringView text)
{
    if (text.isEmpty() || text.size() > mostPlainIntegerDigits)
        return std::nullopt;
    int value = 0;
    for (char const c : text) {
        if (!isDigit(c))
            return std::nullopt;
        value = value * 10 + (c - '0');
    }
    return value;
}

template <typename OtherView>
std::optional<int> toPlainInt(OtherView)
{
    return std::nullopt;
}

} // namespace

namespace numbers {

float toFloat(QAnyStringView text, bool* ok)
{
    if (auto const value = text.visit([](auto view) { return toPlainFloat(view); })) {
        *ok = true;
        return *value;
    }
    return text.toString().toFloat(ok);
}

int toInt(QAnyStringView text)
{
    if (auto const value = text.visit([](auto view) { return toPlainInt(view); }))
        return *value;
    return StringConversions::stringToInt(text.toString(), 0);
}

} // namespace numbers
