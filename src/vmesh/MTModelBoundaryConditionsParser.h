#pragma once

#include "framework/Export.h"
#include "vmesh/MTModelBoundaryConditions.h"

#include <QString>

#include <array>

class QIODevice;

/// Reads the boundary-conditions file that goes with a volume mesh (docs/formats/conditions.md).
///
/// What a line means follows from its number alone; the first three are not looked at. Failures are results,
/// never exceptions; the reason goes to Qt's message log. One thread uses a parser at a time; different
/// parsers are independent. A copy shares the arrays of the original.
class SURFACEIO_EXPORT MTModelBoundaryConditionsParser
{
public:
    /// Remembers the path of the file to read, without opening anything.
    explicit MTModelBoundaryConditionsParser(QString const& fileName);
    MTModelBoundaryConditionsParser(MTModelBoundaryConditionsParser const&) = default;
    MTModelBoundaryConditionsParser& operator=(MTModelBoundaryConditionsParser const&) = default;
    virtual ~MTModelBoundaryConditionsParser();

    /// Reads as many conditions as line 4 says, and nothing after them.
    ///
    /// False, with a default record, when a line cannot be parsed, which the log names. The count is believed
    /// only as far as there are lines: a file that is too short fails at the line after its last, a negative
    /// count at line 4. False without a message, with a default record, when the file has fewer than three
    /// lines. False, with the record as it was, when there is no file to open.
    bool read();

    /// What the last `read` made of the file. The copy shares its arrays with the parser; a later `read`
    /// makes new ones and leaves these alone.
    MTModelBoundaryConditions getBoundaryConditions() const;

private:
    struct Steps;

    bool readFile();
    bool readLines(QIODevice& device, qint64& lineNumber);
    bool readText(QIODevice& device, qint64& lineNumber);
    bool readBytes(QIODevice& device, qint64& lineNumber);
    char const* readRow(char const* row, qint64 lineNumber);
    bool parseLine(QString const& line, qint64 lineNumber);
    bool readNumBoundaryConditions(QString const& line);
    bool readBoundaryCondition(QString const& line);
    bool storeBoundaryCondition(qint32 pointIndex, std::array<float, 3> const& value);
    bool allBoundaryConditionsRead() const;
    void clear();

    bool makeRoom();

    QString fileName;
    MTModelBoundaryConditions conditions;
    qint32 conditionsRead = 0;

    // While a file is being read: its size, and how many conditions the arrays have room for.
    qint64 fileBytes = 0;
    qint64 room = 0;
};
