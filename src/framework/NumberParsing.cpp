#include "framework/NumberParsing.h"

#include "inhouse/fundamentals/StringConversions.h"

#include <QString>

#include <array>
#include <cfloat>
#include <charconv>
#include <cmath>
#include <type_traits>
#include <version>

namespace {

// A power of ten up to 10^22 and an integer up to 2^53 are exact as doubles, so their product or quotient is
// rounded once and hence correctly. This holds where doubles are computed as doubles.
constexpr bool exactDoubles = FLT_EVAL_METHOD == 0;
constexpr std::array<double, 23> powersOfTen = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr int greatestExactPower = static_cast<int>(powersOfTen.size()) - 1;
constexpr quint64 greatestExactInteger = quint64(1) << 53;
// 19 digits fit into 64 bits whatever they are.
constexpr qsizetype mostDigits = 19;
constexpr qsizetype mostExponentDigits = 4;

/// [+-]digits[.digits][e[+-]digits], at least one digit before or after the point.
struct Decimal
{
    quint64 digits = 0;
    int exponent = 0;
    bool isNegative = false;
};

// Behind the digits from `next` on. Their value wraps around when there are too many, which their number
// tells.
char const* readDigits(char const* next, char const* end, quint64& digits)
{
    quint64 value = digits;
    for (; next != end; ++next) {
        unsigned const digit = numbers::digitOf(*next);
        if (digit > 9)
            break;
        value = value * 10 + digit;
    }
    digits = value;
    return next;
}

// Behind what begins like an exponent; null where it is none.
char const* readExponent(char const* next, char const* end, int& exponent)
{
    if (next == end || (*next != 'e' && *next != 'E'))
        return next;
    ++next;
    bool const isNegative = next != end && *next == '-';
    if (next != end && (*next == '-' || *next == '+'))
        ++next;
    quint64 value = 0;
    char const* const last = readDigits(next, end, value);
    if (last == next || last - next > mostExponentDigits)
        return nullptr;
    exponent += isNegative ? -static_cast<int>(value) : static_cast<int>(value);
    return last;
}

// Behind the number; null where there is none, or one of too many digits.
char const* readDecimal(char const* next, char const* end, Decimal& decimal)
{
    if (next != end && (*next == '-' || *next == '+')) {
        decimal.isNegative = *next == '-';
        ++next;
    }
    char const* const first = next;
    next = readDigits(next, end, decimal.digits);
    qsizetype count = next - first;
    if (next != end && *next == '.') {
        char const* const point = next;
        next = readDigits(point + 1, end, decimal.digits);
        qsizetype const decimals = next - point - 1;
        decimal.exponent = -static_cast<int>(decimals);
        count += decimals;
    }
    return count != 0 && count <= mostDigits ? readExponent(next, end, decimal.exponent) : nullptr;
}

// False where the product or quotient would be rounded twice.
bool toDoubleExactly(Decimal const& decimal, double& value)
{
    if (!exactDoubles || decimal.digits > greatestExactInteger || decimal.exponent > greatestExactPower ||
        decimal.exponent < -greatestExactPower)
        return false;
    value = static_cast<double>(decimal.digits);
    if (decimal.exponent < 0)
        value /= powersOfTen[static_cast<unsigned>(-decimal.exponent)];
    else
        value *= powersOfTen[static_cast<unsigned>(decimal.exponent)];
    if (decimal.isNegative)
        value = -value;
    return true;
}

bool toDouble(char const* begin, char const* end, double& value)
{
#if defined(__cpp_lib_to_chars) && __cpp_lib_to_chars >= 201611L
    auto const [last, problem] = std::from_chars(*begin == '+' ? begin + 1 : begin, end, value);
    return problem == std::errc() && last == end;
#else
    Q_UNUSED(begin);
    Q_UNUSED(end);
    Q_UNUSED(value);
    return false;
#endif
}

// What is too small or too great for single precision is judged by Qt.
bool isSinglePrecision(double value)
{
    double const size = std::fabs(value);
    return size >= double(FLT_MIN) && size <= double(FLT_MAX);
}

} // namespace

namespace numbers {

bool takeFloat(char const*& next, char const* end, float& value)
{
    Decimal decimal;
    char const* const last = readDecimal(next, end, decimal);
    double number = 0;
    if (!last || (!toDoubleExactly(decimal, number) && !toDouble(next, last, number)) ||
        (decimal.digits != 0 && !isSinglePrecision(number)))
        return false;
    next = last;
    value = static_cast<float>(number);
    return true;
}

float toFloat(QAnyStringView text, bool* ok)
{
    return text.visit([ok](auto view) {
        if constexpr (std::is_same_v<decltype(view), QLatin1StringView>) {
            char const* next = view.begin();
            float value = 0;
            if (takeFloat(next, view.end(), value) && next == view.end()) {
                *ok = true;
                return value;
            }
        }
        return QAnyStringView(view).toString().toFloat(ok);
    });
}

int toInt(QAnyStringView text)
{
    return text.visit([](auto view) {
        if constexpr (std::is_same_v<decltype(view), QLatin1StringView>) {
            char const* next = view.begin();
            int const value = takeDigits(next, view.end());
            if (next == view.end())
                return value;
        }
        return StringConversions::stringToInt(QAnyStringView(view).toString(), 0);
    });
}

} // namespace numbers
