#pragma once

#include <QFileInfo>
#include <QStringList>

#include <span>

namespace tool {

/// The suffixes of a row of a table, which are a text with spaces between.
inline QStringList split(QLatin1StringView suffixes)
{
    return QString(suffixes).split(u' ', Qt::SkipEmptyParts);
}

/// Whether the path ends with one of the suffixes, in any letter case.
inline bool hasSuffix(QString const& path, QLatin1StringView suffixes)
{
    return split(suffixes).contains(QFileInfo(path).suffix().toLower());
}

/// The row whose suffixes the path ends with, in any letter case, or null.
template <typename Row>
Row const* rowFor(QString const& path, std::span<Row const> rows)
{
    for (Row const& row : rows) {
        if (hasSuffix(path, row.suffixes))
            return &row;
    }
    return nullptr;
}

/// All suffixes of a table: ".stl, .xyz".
template <typename Row>
QString joinedSuffixes(std::span<Row const> rows)
{
    QStringList suffixes;
    for (Row const& row : rows) {
        for (QString const& suffix : split(row.suffixes))
            suffixes << u'.' + suffix;
    }
    return suffixes.join(QStringLiteral(", "));
}

} // namespace tool
