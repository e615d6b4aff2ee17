#include "vmesh/MTModelBoundaryConditionsParser.h"

#include "framework/MemoryGuard.h"
#include "vmesh/LineWalk.h"
#include "vmesh/NumberRow.h"
#include "vmesh/SharedArray.h"

#include <QDebug>
#include <QFile>
#include <QStringList>

#include <algorithm>
#include <array>

namespace {

constexpr qint64 countLine = 4;
constexpr int components = 3;
constexpr qsizetype partsOfCondition = 1 + components;
constexpr qint64 leastConditionBytes = 8; // "0 0 0 0" and its line feed

} // namespace

struct MTModelBoundaryConditionsParser::Steps
{
    MTModelBoundaryConditionsParser& parser;

    bool parseLine(QString const& line, qint64 lineNumber) const
    {
        return parser.parseLine(line, lineNumber);
    }
    char const* readRow(char const* row, qint64 lineNumber) const { return parser.readRow(row, lineNumber); }
    bool isDone(qint64) const { return parser.allBoundaryConditionsRead(); }
    void restart() const
    {
        qint64 const bytes = parser.fileBytes;
        parser.clear();
        parser.fileBytes = bytes;
    }
};

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
    return memory::succeeds([&] { return readBytes(device, lineNumber); });
}

bool MTModelBoundaryConditionsParser::readText(QIODevice& device, qint64& lineNumber)
{
    return vmesh::walkText(device, lineNumber, Steps{*this});
}

bool MTModelBoundaryConditionsParser::readBytes(QIODevice& device, qint64& lineNumber)
{
    return vmesh::walkBytes(device, lineNumber, Steps{*this});
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
