#include "vmesh/MTModelBoundaryConditionsWriter.h"

#include "framework/FileAccess.h"
#include "framework/MemoryGuard.h"
#include "framework/RowBlocks.h"

#include <QDebug>
#include <QFile>
#include <QTextStream>

#include <charconv>
#include <cmath>
#include <cstring>

namespace {

constexpr int components = 3;
constexpr int significantDigits = 6;

QString number(float value)
{
    return QString::number(static_cast<double>(value), 'g', significantDigits);
}

// An integer and three numbers of up to 13 characters, each with a blank or the line feed behind it.
constexpr qsizetype longestLine = 12 + components * 14;

// Whether `value` may lie in the middle of two texts, where Qt goes away from zero and the standard library
// to the even one. Such a value has seven digits, of which the last is a 5: so often can it be halved, and no
// more.
bool mayLieInTheMiddle(double value)
{
    double const size = std::abs(value);
    double const scaled = size * (size < 1.0 ? 1024.0 : size < 1000.0 ? 64.0 : size < 1e5 ? 8.0 : 2.0);
    return scaled == std::floor(scaled);
}

// The text that `number` gives. Returns where it ends.
char* putNumber(float value, char* target, char* end)
{
    constexpr float sevenDigits = 1e6f;
    if (std::abs(value) < sevenDigits && value == std::trunc(value)) // -0 has no sign
        return std::to_chars(target, end, static_cast<int>(value)).ptr;
    double const exact = static_cast<double>(value);
    if (std::isfinite(value) && !mayLieInTheMiddle(exact))
        return std::to_chars(target, end, exact, std::chars_format::general, significantDigits).ptr;
    QByteArray const text = number(value).toLatin1();
    std::memcpy(target, text.constData(), static_cast<std::size_t>(text.size()));
    return target + text.size();
}

// Returns where the next line goes.
char* putLine(qint32 pointIndex, float const* value, char* target)
{
    char* const end = target + longestLine;
    target = std::to_chars(target, end, pointIndex).ptr;
    for (int i = 0; i < components; ++i) {
        *target++ = ' ';
        target = putNumber(value[i], target, end);
    }
    *target++ = '\n';
    return target;
}

// The lines as bytes, past the text stream.
void writeLines(MTModelBoundaryConditions const& conditions, QIODevice& device)
{
    QDataStream stream(&device);
    RowBlocks blocks(stream, longestLine);
    for (qint64 k = 0; k < conditions.numBoundaryConditions; ++k) {
        char* const target = blocks.room().data();
        if (!blocks.take(putLine(conditions.pointIndices.data()[k], conditions.values.data() + components * k,
                                 target) -
                         target))
            return;
    }
    blocks.write();
}

} // namespace

MTModelBoundaryConditionsWriter::MTModelBoundaryConditionsWriter(
    MTModelBoundaryConditions const& boundaryConditions_)
    : boundaryConditions(boundaryConditions_)
{}

MTModelBoundaryConditionsWriter::~MTModelBoundaryConditionsWriter() = default;

bool MTModelBoundaryConditionsWriter::write(QString const& fileName)
{
    bool const hasArrays = !boundaryConditions.pointIndices.isNull() && !boundaryConditions.values.isNull();
    if (boundaryConditions.numBoundaryConditions > 0 && !hasArrays)
        return false;
    QFile file(fileName);
    if (!files::open(file, QIODevice::WriteOnly)) {
        qWarning() << "MTModelBoundaryConditionsWriter : could not open file for writing.";
        return false;
    }
    return memory::succeeds([&] {
        QTextStream stream(&file);
        writeHeader(stream);
        writeBoundaryConditions(stream);
        writeFooter(stream);
        return true;
    });
}

void MTModelBoundaryConditionsWriter::writeHeader(QTextStream& stream) const
{
    stream << "FemBoundaryConditions\n"
           << "{\n"
           << "DefaultMeshFilename\n"
           << boundaryConditions.numBoundaryConditions << '\n';
}

// Onto a device in blocks of bytes, into a string value by value.
void MTModelBoundaryConditionsWriter::writeBoundaryConditions(QTextStream& stream) const
{
    if (QIODevice* const device = stream.device()) {
        stream.flush();
        return writeLines(boundaryConditions, *device);
    }
    qint32 const* const pointIndices = boundaryConditions.pointIndices.data();
    float const* value = boundaryConditions.values.data();
    for (qint64 k = 0; k < boundaryConditions.numBoundaryConditions; ++k, value += components)
        stream << pointIndices[k] << ' ' << number(value[0]) << ' ' << number(value[1]) << ' '
               << number(value[2]) << '\n';
}

void MTModelBoundaryConditionsWriter::writeFooter(QTextStream& stream) const
{
    stream << '}';
}
