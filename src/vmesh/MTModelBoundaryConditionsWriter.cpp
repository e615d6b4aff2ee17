#include "vmesh/MTModelBoundaryConditionsWriter.h"

#include "framework/FileAccess.h"

#include <QDebug>
#include <QFile>
#include <QTextStream>

namespace {

constexpr int components = 3;
constexpr int significantDigits = 6;

QString number(float value)
{
    return QString::number(static_cast<double>(value), 'g', significantDigits);
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
    QTextStream stream(&file);
    writeHeader(stream);
    writeBoundaryConditions(stream);
    writeFooter(stream);
    return true;
}

void MTModelBoundaryConditionsWriter::writeHeader(QTextStream& stream) const
{
    stream << "FemBoundaryConditions\n"
           << "{\n"
           << "DefaultMeshFilename\n"
           << boundaryConditions.numBoundaryConditions << '\n';
}

void MTModelBoundaryConditionsWriter::writeBoundaryConditions(QTextStream& stream) const
{
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
