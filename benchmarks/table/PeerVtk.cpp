#include "table/Contender.h"

#include <vtkNew.h>
#include <vtkOBJReader.h>
#include <vtkPLYReader.h>
#include <vtkPLYWriter.h>
#include <vtkPointData.h>
#include <vtkPolyData.h>
#include <vtkPolyDataNormals.h>
#include <vtkSTLReader.h>
#include <vtkSTLWriter.h>

#include <QFile>

using table::Size;
using table::Work;

namespace {

QByteArray pathOf(QString const& folder, char const* name)
{
    return QFile::encodeName(folder + u'/' + QLatin1StringView(name));
}

std::optional<Size> sizeOf(vtkPolyData* data)
{
    // Facets without their normals are only half of the work.
    if (!data || !data->GetPointData()->GetNormals())
        return {};
    return Size{data->GetNumberOfPoints(), data->GetNumberOfPolys()};
}

template <typename Reader>
auto readWithNormals(char const* name)
{
    return [name](QString const& folder) -> Work {
        return [path = pathOf(folder, name)] {
            vtkNew<Reader> reader;
            reader->SetFileName(path.constData());
            reader->Update();
            return sizeOf(reader->GetOutput());
        };
    };
}

// With as many normals as points, as our readers do it.
template <typename Reader>
auto readAndAddNormals(char const* name)
{
    return [name](QString const& folder) -> Work {
        return [path = pathOf(folder, name)] {
            vtkNew<Reader> reader;
            reader->SetFileName(path.constData());
            vtkNew<vtkPolyDataNormals> normals;
            normals->SetInputConnection(reader->GetOutputPort());
            normals->SplittingOff();
            normals->ConsistencyOff();
            normals->Update();
            return sizeOf(normals->GetOutput());
        };
    };
}

void writeColors(vtkPLYWriter& writer)
{
    writer.SetArrayName("RGB");
}

void writeColors(vtkSTLWriter&) {}

template <typename Writer>
auto write(char const* suffix)
{
    return [suffix](QString const& folder) -> Work {
        vtkNew<vtkPLYReader> reader;
        reader->SetFileName(pathOf(folder, "scan.ply").constData());
        reader->Update();
        vtkSmartPointer<vtkPolyData> const data = reader->GetOutput();
        return [folder, data, suffix, count = 0]() mutable -> std::optional<Size> {
            vtkNew<Writer> writer;
            writer->SetInputData(data);
            writer->SetFileTypeToBinary();
            writeColors(*writer);
            QByteArray const path = pathOf(folder, "out.vtk") + QByteArray::number(count++) + suffix;
            writer->SetFileName(path.constData());
            return writer->Write() == 1 ? sizeOf(data) : std::nullopt;
        };
    };
}

} // namespace

int main(int argc, char** argv)
{
    return table::run({{"ply-read", readWithNormals<vtkPLYReader>("scan.ply")},
                       {"ply-write", write<vtkPLYWriter>(".ply")},
                       {"stl-read", readAndAddNormals<vtkSTLReader>("scan.stl")},
                       {"stl-read-shuffled", readAndAddNormals<vtkSTLReader>("shuffled.stl")},
                       {"stl-read-ascii", readAndAddNormals<vtkSTLReader>("ascii.stl")},
                       {"stl-write", write<vtkSTLWriter>(".stl")},
                       {"obj-read-positions", readAndAddNormals<vtkOBJReader>("positions.obj")},
                       {"obj-read-split", readWithNormals<vtkOBJReader>("split.obj")}},
                      argc, argv);
}
