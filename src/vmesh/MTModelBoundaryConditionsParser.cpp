#include "vmesh/MTModelBoundaryConditionsParser.h"

#include "framework/ByteLines.h"
#include "framework/MemoryGuard.h"
#include "vmesh/NumberRow.h"
#include "vmesh/SharedArray.h"

#include <QDebug>
#include <QFile>
#include <QStringList>
#include <QTextStream>

#include <algorithm>
#include <array>
#include <new>

namespace {

constexpr qint64 countLine = 4;
constexpr int components = 3;
constexpr qsizetype partsOfCondition = 1 + components;
constexpr qint64 leastConditionBytes = 8; // "0 0 0 0" and its line feed

bool isAscii(QByteArrayView bytes)
{
    return std::all_of(bytes.begin(), bytes.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

} // namespace

MTModelBoundaryConditionsParser::MTModelBoundaryConditionsParser(QString const& fileName_)
    : fileName(fileName_)
{}

MTModelBoundaryConditionsParser::~MTModelBoundaryConditionsParser() = default;

MTModelBoundaryConditions MTModelBoundaryConditionsParser::getBoundaryConditions() const
{
    return conditions;
}

bool MTModelBoundaryConditionsParser::read()
{
    return memory::succeeds([this] { return readFile(); });
}

bool MTModelBoundaryConditionsParser::readFile()
{
    if (fileName.isEmpty()) {
        qWarning() << "MTModelBoundaryConditionsParser : file name not filled in.";
        return false;
    }
    if (!QFile::exists(fileName)) {
        qWarning() << "MTModelBoundaryConditionsParser : file does not exist.";
        return false;
    }
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        qWarning() << "MTModelBoundaryConditionsParser : could not open file for reading.";
        return false;
    }
    clear();
    fileBytes = file.size();
    qint64 lineNumber = 0;
    if (readLines(file, lineNumber))
        return allBoundaryConditionsRead();
    qWarning() << "MTModelBoundaryConditionsParser : could not parse line" << lineNumber << ".";
    clear();
    return false;
}

bool MTModelBoundaryConditionsParser::readLines(QIODevice& device, qint64& lineNumber)
{
    try {
        return readBytes(device, lineNumber);
    } catch (std::bad_alloc const&) { // a line that is longer than there is memory
        return false;
    }
}

bool MTModelBoundaryConditionsParser::readText(QIODevice& device, qint64& lineNumber)
{
    QTextStream stream(&device);
    QString line;
    do {
        ++lineNumber; // a line may be more than there is memory for
        line = stream.readLine(text::longestLine);
        if (line.size() == text::longestLine || !parseLine(line, lineNumber))
            return false;
    } while (!allBoundaryConditionsRead() && !line.isNull());
    return true;
}

// From the start, after bytes that are not ASCII: until then bytes and text have been the same.
bool MTModelBoundaryConditionsParser::readTextAgain(QIODevice& device, qint64& lineNumber)
{
    if (!device.seek(0))
        return false;
    qint64 const size = fileBytes;
    clear();
    fileBytes = size;
    lineNumber = 0;
    return readText(device, lineNumber);
}

// As readText, for a file of ASCII several times faster.
bool MTModelBoundaryConditionsParser::readBytes(QIODevice& device, qint64& lineNumber)
{
    if (device.isSequential()) // no way back to the start
        return readText(device, lineNumber);
    text::ByteLines lines(device);
    do {
        ++lineNumber;
        if (!lines.fetch())
            return !lines.isLineTooLong() && parseLine(QString(), lineNumber);
        if (char const* const end = readRow(lines.text(), lineNumber)) {
            lines.goTo(end);
            continue;
        }
        if (!isAscii(lines.line()))
            return readTextAgain(device, lineNumber);
        if (!parseLine(QString::fromLatin1(lines.line()), lineNumber))
            return false;
        lines.skipLine();
    } while (!allBoundaryConditionsRead());
    return true;
}

// Null for a line that is no condition, or not in the usual spelling.
char const* MTModelBoundaryConditionsParser::readRow(char const* row, qint64 lineNumber)
{
    if (lineNumber <= countLine)
        return nullptr;
    qint32 pointIndex = 0;
    std::array<float, components> value;
    char const* const end = vmesh::readIntegerAndRealNumbers(row, pointIndex, value);
    return end != nullptr && storeBoundaryCondition(pointIndex, value) ? end : nullptr;
}

bool MTModelBoundaryConditionsParser::parseLine(QString const& line, qint64 lineNumber)
{
    if (lineNumber < countLine)
        return true;
    return lineNumber == countLine ? readNumBoundaryConditions(line) : readBoundaryCondition(line);
}

bool MTModelBoundaryConditionsParser::readNumBoundaryConditions(QString const& line)
{
    bool isNumber = false;
    qint32 const count = line.toInt(&isNumber);
    if (!isNumber || count < 0)
        return false;
    conditions.numBoundaryConditions = count;
    return makeRoom();
}

bool MTModelBoundaryConditionsParser::makeRoom()
{
    qint64 const rows =
        vmesh::nextRoom(room, conditions.numBoundaryConditions, fileBytes, leastConditionBytes);
    if (!vmesh::growRows(conditions.pointIndices, 1, room, rows, 0) ||
        !vmesh::growRows(conditions.values, components, room, rows, 0.0f))
        return false;
    room = rows;
    return true;
}

bool MTModelBoundaryConditionsParser::readBoundaryCondition(QString const& line)
{
    // Counted first: the list of a line of blanks takes thirty times its memory.
    if (line.count(u' ') != partsOfCondition - 1)
        return false;
    QStringList const parts = line.split(u' ', Qt::KeepEmptyParts);
    bool isNumber = false;
    qint32 const pointIndex = parts.first().toInt(&isNumber);
    std::array<float, components> value = {};
    for (int i = 0; i < components && isNumber; ++i)
        value[std::size_t(i)] = parts[1 + i].toFloat(&isNumber);
    return isNumber && storeBoundaryCondition(pointIndex, value);
}

bool MTModelBoundaryConditionsParser::storeBoundaryCondition(qint32 pointIndex,
                                                             std::array<float, 3> const& value)
{
    if (conditionsRead >= room && !makeRoom())
        return false;
    conditions.pointIndices.data()[conditionsRead] = pointIndex;
    std::ranges::copy(value, conditions.values.data() + components * qint64(conditionsRead));
    ++conditionsRead;
    return true;
}

bool MTModelBoundaryConditionsParser::allBoundaryConditionsRead() const
{
    return conditionsRead == conditions.numBoundaryConditions;
}

void MTModelBoundaryConditionsParser::clear()
{
    conditions = MTModelBoundaryConditions();
    conditionsRead = 0;
    fileBytes = 0;
    room = 0;
}
