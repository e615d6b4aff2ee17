#pragma once

#include <QString>
#include <QStringList>

#include <array>
#include <optional>

namespace vmesh {

/// Converts the parts of a line, between single blanks, one after the other. Nothing unless there are `count`
/// parts and `convert(part, &isNumber)` accepts each.
template <typename Number, std::size_t count, typename Convert>
std::optional<std::array<Number, count>> numbersOf(QString const& line, Convert convert)
{
    // Counted first: the list of a line of blanks takes thirty times its memory.
    if (line.count(u' ') != qsizetype(count) - 1)
        return std::nullopt;
    QStringList const parts = line.split(u' ', Qt::KeepEmptyParts);
    bool isNumber = true;
    std::array<Number, count> values = {};
    for (std::size_t i = 0; i < count && isNumber; ++i)
        values[i] = convert(parts[qsizetype(i)], &isNumber);
    return isNumber ? std::optional(values) : std::nullopt;
}

/// A line of `count` decimal integers, as `QString::toInt` reads them.
template <std::size_t count>
std::optional<std::array<qint32, count>> integersOf(QString const& line)
{
    return numbersOf<qint32, count>(line, [](QString const& part, bool* ok) { return part.toInt(ok); });
}

/// A line of `count` real numbers, as `QString::toFloat` reads them.
template <std::size_t count>
std::optional<std::array<float, count>> realNumbersOf(QString const& line)
{
    return numbersOf<float, count>(line, [](QString const& part, bool* ok) { return part.toFloat(ok); });
}

} // namespace vmesh
