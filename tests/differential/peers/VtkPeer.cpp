#include "differential/peers/CNumbers.h"
#include "differential/peers/Peers.h"

#include <vtkCellArray.h>
#include <vtkCommand.h>
#include <vtkDataArray.h>
#include <vtkFloatArray.h>
#include <vtkNew.h>
#include <vtkOBJReader.h>
#include <vtkOBJWriter.h>
#include <vtkObject.h>
#include <vtkPLYReader.h>
#include <vtkPLYWriter.h>
#include <vtkPointData.h>
#include <vtkPolyData.h>
#include <vtkSTLReader.h>
#include <vtkSTLWriter.h>
#include <vtkUnsignedCharArray.h>

#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace peers {

namespace {

constexpr auto colorArray = "colors";

QVector3D vectorOf(double const* v)
{
    return {static_cast<float>(v[0]), static_cast<float>(v[1]), static_cast<float>(v[2])};
}

void appendPointData(vtkPolyData& from, PeerMesh& to)
{
    vtkDataArray* const normals = from.GetPointData()->GetNormals();
    vtkDataArray* const coordinates = from.GetPointData()->GetTCoords();
    auto* const colors = vtkUnsignedCharArray::SafeDownCast(from.GetPointData()->GetScalars());
    for (vtkIdType i = 0; i < from.GetNumberOfPoints(); ++i) {
        to.vertices << vectorOf(from.GetPoint(i));
        if (normals)
            to.normals << vectorOf(normals->GetTuple3(i));
        if (coordinates)
            to.textureCoordinates << QVector2D(static_cast<float>(coordinates->GetComponent(i, 0)),
                                               static_cast<float>(coordinates->GetComponent(i, 1)));
        unsigned int color = 0;
        for (int c = 0; colors && c < colors->GetNumberOfComponents(); ++c)
            color |= static_cast<unsigned int>(colors->GetTypedComponent(i, c)) << 8 * c;
        if (colors)
            to.colors << color;
    }
}

PeerMesh resultOf(vtkPolyData& from)
{
    PeerMesh result;
    appendPointData(from, result);
    vtkNew<vtkIdList> polygon;
    from.GetPolys()->InitTraversal();
    while (from.GetPolys()->GetNextCell(polygon)) {
        auto const corner = [&](vtkIdType i) { return static_cast<int>(polygon->GetId(i)); };
        for (vtkIdType i = 2; i < polygon->GetNumberOfIds(); ++i)
            result.triangles << std::array{corner(0), corner(i - 1), corner(i)};
    }
    return result;
}

// Complaints on stderr would be noise; a failure is an event.
template <typename Reader>
std::optional<PeerMesh> load(Reader& reader, QString const& path)
{
    vtkObject::GlobalWarningDisplayOff();
    reader.SetFileName(QFile::encodeName(path).constData());
    reader.Update();
    vtkPolyData* const output = reader.GetOutput();
    if (reader.GetErrorCode() != 0 || !output || output->GetNumberOfPoints() == 0)
        return {};
    return resultOf(*output);
}

void addPointData(geometry::Mesh const& from, vtkPolyData& to)
{
    vtkNew<vtkFloatArray> normals;
    normals->SetNumberOfComponents(3);
    for (QVector3D const& n : from.normals)
        normals->InsertNextTuple3(double(n.x()), double(n.y()), double(n.z()));
    if (!from.normals.isEmpty())
        to.GetPointData()->SetNormals(normals);
    vtkNew<vtkUnsignedCharArray> colors;
    colors->SetNumberOfComponents(4);
    colors->SetName(colorArray);
    for (unsigned int const color : from.colors)
        colors->InsertNextTuple4(color & 0xFF, color >> 8 & 0xFF, color >> 16 & 0xFF, color >> 24);
    if (!from.colors.isEmpty())
        to.GetPointData()->SetScalars(colors);
    vtkNew<vtkFloatArray> coordinates;
    coordinates->SetNumberOfComponents(2);
    for (QVector2D const& uv : from.textureCoordinates)
        coordinates->InsertNextTuple2(double(uv.x()), double(uv.y()));
    if (!from.textureCoordinates.isEmpty())
        to.GetPointData()->SetTCoords(coordinates);
}

vtkNew<vtkPolyData> polyDataOf(geometry::Mesh const& mesh)
{
    vtkNew<vtkPoints> points;
    points->SetDataTypeToFloat();
    for (QVector3D const& v : mesh.vertices)
        points->InsertNextPoint(double(v.x()), double(v.y()), double(v.z()));
    vtkNew<vtkCellArray> triangles;
    for (qsizetype i = 0; i + 3 < mesh.indices.size(); i += 4) {
        vtkIdType const corners[] = {mesh.indices[i], mesh.indices[i + 1], mesh.indices[i + 2]};
        triangles->InsertNextCell(3, corners);
    }
    vtkNew<vtkPolyData> result;
    result->SetPoints(points);
    result->SetPolys(triangles);
    addPointData(mesh, *result);
    return result;
}

template <typename Writer>
bool save(Writer& writer, geometry::Mesh const& mesh, QString const& path, bool isBinary)
{
    vtkNew<vtkPolyData> const data = polyDataOf(mesh);
    writer.SetInputData(data);
    writer.SetFileName(QFile::encodeName(path).constData());
    isBinary ? writer.SetFileTypeToBinary() : writer.SetFileTypeToASCII();
    return writer.Write() == 1;
}

} // namespace

bool hasVtk()
{
    return true;
}

std::optional<PeerMesh> loadWithVtk(QString const& path)
{
    CNumbers const numbers;
    QString const suffix = QFileInfo(path).suffix().toLower();
    if (suffix == QLatin1String("stl")) {
        vtkNew<vtkSTLReader> reader;
        reader->MergingOff();
        return load(*reader, path);
    }
    if (suffix == QLatin1String("ply")) {
        vtkNew<vtkPLYReader> reader;
        return load(*reader, path);
    }
    vtkNew<vtkOBJReader> reader;
    return load(*reader, path);
}

bool saveWithVtk(geometry::Mesh const& mesh, QString const& path, bool isBinary)
{
    CNumbers const numbers;
    if (path.endsWith(QLatin1String("ply"), Qt::CaseInsensitive)) {
        vtkNew<vtkPLYWriter> writer;
        writer->SetArrayName(colorArray);
        writer->SetEnableAlpha(true);
        return save(*writer, mesh, path, isBinary);
    }
    if (path.endsWith(QLatin1String("obj"), Qt::CaseInsensitive)) {
        vtkNew<vtkPolyData> const data = polyDataOf(mesh);
        vtkNew<vtkOBJWriter> writer;
        writer->SetInputData(data);
        writer->SetFileName(QFile::encodeName(path).constData());
        return writer->Write() == 1;
    }
    vtkNew<vtkSTLWriter> writer;
    return save(*writer, mesh, path, isBinary);
}

} // namespace peers
