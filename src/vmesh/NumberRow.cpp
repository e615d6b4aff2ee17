#include "vmesh/NumberRow.h"

#include "framework/NumberParsing.h"

#include <QLatin1StringView>

#include <cstddef>

namespace vmesh {

namespace {

constexpr std::ptrdiff_t mostDigits = 9; // fit into 32 bits whatever they are

// Behind the line end at `text`, null where there is none.
char const* behindLineEnd(char const* text)
{
    if (*text == '\r')
        ++text;
    return *text == '\n' ? text + 1 : nullptr;
}

// Behind the number at `text`, null where there is none.
char const* readInteger(char const* text, qint32& value)
{
    bool const isNegative = *text == '-';
    char const* const first = text + (isNegative ? 1 : 0);
    quint32 digits = 0;
    for (text = first; numbers::digitOf(*text) <= 9; ++text)
        digits = 10 * digits + numbers::digitOf(*text);
    if (text == first || text - first > mostDigits)
        return nullptr;
    value = isNegative ? -static_cast<qint32>(digits) : static_cast<qint32>(digits);
    return text;
}

// The blank or line feed behind the part at `text`, null when there is more than ASCII in it.
char const* endOfPart(char const* text)
{
    constexpr char lastAscii = 0x7f;
    while (*text != ' ' && *text != '\n' && static_cast<unsigned char>(*text) <= lastAscii)
        ++text;
    return *text == ' ' || *text == '\n' ? text : nullptr;
}

bool readRealNumber(char const* begin, char const* end, float& value)
{
    bool isNumber = false;
    value = numbers::toFloat(QLatin1StringView(begin, end), &isNumber);
    return isNumber;
}

} // namespace

char const* readIntegers(char const* row, std::array<qint32, 5>& values)
{
    for (qint32& value : values) {
        bool const isFirst = &value == values.data();
        if (!isFirst && *row++ != ' ')
            return nullptr;
        row = readInteger(row, value);
        if (row == nullptr)
            return nullptr;
    }
    return behindLineEnd(row);
}

char const* readRealNumbers(char const* row, std::array<float, 3>& values)
{
    for (float& value : values) {
        bool const isLast = &value == &values.back();
        char const* const end = endOfPart(row);
        if (end == nullptr || (*end == '\n') != isLast)
            return nullptr;
        bool const hasReturn = isLast && end != row && end[-1] == '\r';
        if (!readRealNumber(row, hasReturn ? end - 1 : end, value))
            return nullptr;
        row = end + 1;
    }
    return row;
}

char const* readIntegerAndRealNumbers(char const* row, qint32& integer, std::array<float, 3>& values)
{
    row = readInteger(row, integer);
    return row != nullptr && *row == ' ' ? readRealNumbers(row + 1, values) : nullptr;
}

} // namespace vmesh
