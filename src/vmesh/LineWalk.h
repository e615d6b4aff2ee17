#pragma once

#include "framework/ByteLines.h"

#include <QIODevice>
#include <QString>
#include <QTextStream>

/// Two ways through a file whose lines are told apart by their numbers: decoded line by line, or as bytes.
/// Both give the same, up to the line whose number comes out. False when that line is malformed, or as long
/// as `text::longestLine`.
///
/// `Steps` is what a parser does on the way:
///
///     bool parseLine(QString const& line, qint64 lineNumber); // null behind the last line
///     char const* readRow(char const* row, qint64 lineNumber); // see NumberRow.h: the next line, or null
///     bool isDone(qint64 lineNumber) const; // whether what follows that line does not matter
///     void restart(); // forgets all lines
///
/// `lineNumber` begins with 0. Throws std::bad_alloc.
namespace vmesh {

template <typename Steps>
bool walkText(QIODevice& device, qint64& lineNumber, Steps steps)
{
    QTextStream stream(&device);
    QString line;
    do {
        ++lineNumber; // a line may be more than there is memory for
        line = stream.readLine(text::longestLine);
        if (line.size() == text::longestLine || !steps.parseLine(line, lineNumber))
            return false;
    } while (!line.isNull() && !steps.isDone(lineNumber));
    return true;
}

/// Several times faster for a file of ASCII. Others are begun again as text, as far as until then bytes and
/// text have been the same.
template <typename Steps>
bool walkBytes(QIODevice& device, qint64& lineNumber, Steps steps)
{
    if (device.isSequential()) // no way back to the start
        return walkText(device, lineNumber, steps);
    text::ByteLines lines(device);
    do {
        ++lineNumber;
        if (!lines.fetch())
            return !lines.isLineTooLong() && steps.parseLine(QString(), lineNumber);
        if (char const* const end = steps.readRow(lines.text(), lineNumber)) {
            lines.goTo(end);
            continue;
        }
        QByteArrayView const line = lines.line();
        if (!text::isAscii(line)) {
            steps.restart();
            lineNumber = 0;
            return device.seek(0) && walkText(device, lineNumber, steps);
        }
        if (!steps.parseLine(QString::fromLatin1(line), lineNumber))
            return false;
        lines.goBehind(line);
    } while (!steps.isDone(lineNumber));
    return true;
}

} // namespace vmesh
