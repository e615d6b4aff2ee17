#pragma once

#include "stl/STLSurfaceCreator.h"
#include "support/PrivateAccess.h"
#include "support/StlFiles.h"

#include <QBuffer>
#include <QDataStream>

/// What the tests of the surface creator share: its input, and its private steps.
namespace support {

/// The layout of a binary STL file of so many facets.
inline STLDataFormat formatOf(qsizetype facets)
{
    int const count = static_cast<int>(facets);
    return {96, 84 + 50 * count, count, 36, 50};
}

/// A stream over a binary file, as the reader sets it up.
class Stream
{
public:
    explicit Stream(QList<StlFacet> const& facets)
        : Stream(support::binaryStl(facets), formatOf(facets.size()))
    {}
    Stream(QByteArray data, STLDataFormat const& format_)
        : format(format_)
    {
        buffer.setData(data);
        buffer.open(QIODevice::ReadOnly);
        stream.setDevice(&buffer);
        stream.setByteOrder(QDataStream::LittleEndian);
        stream.setFloatingPointPrecision(QDataStream::SinglePrecision);
    }

    QDataStream stream;
    STLDataFormat format;

private:
    QBuffer buffer;
};

using TagRuns = QMap<std::pair<int, int>, QList<STLTagSurfaceData>>;

struct Split
{
    using Member = TagRuns (STLSurfaceCreator::*)(QDataStream&, STLDataFormat const&);
    friend Member privateMember(Split);
};
template struct PrivateMember<Split, &STLSurfaceCreator::getSurfaceTagDataByTag>;

struct FirstRunOfTag
{
    using Member = STLTagSurfaceData (STLSurfaceCreator::*)(int, QList<STLTagSurfaceData> const&) const;
    friend Member privateMember(FirstRunOfTag);
};
template struct PrivateMember<FirstRunOfTag, &STLSurfaceCreator::getSurfaceTagDataByTag>;

struct Vertices
{
    using Member = std::unique_ptr<float[]> (STLSurfaceCreator::*)(QDataStream&, STLDataFormat const&, int,
                                                                   int) const;
    friend Member privateMember(Vertices);
};
template struct PrivateMember<Vertices, &STLSurfaceCreator::getVerticesFromStream>;

struct Strips
{
    using Member = std::unique_ptr<int[]> (STLSurfaceCreator::*)(int, int) const;
    friend Member privateMember(Strips);
};
template struct PrivateMember<Strips, &STLSurfaceCreator::getStripsFromStream>;

struct RunMesh
{
    using Member = geometry::Mesh (STLSurfaceCreator::*)(STLTagSurfaceData const&, QDataStream&,
                                                         STLDataFormat const&) const;
    friend Member privateMember(RunMesh);
};
template struct PrivateMember<RunMesh, &STLSurfaceCreator::createMeshFromSurfaceData>;

struct Merge
{
    using Member = geometry::Mesh (STLSurfaceCreator::*)(geometry::Mesh const&, geometry::Mesh const&) const;
    friend Member privateMember(Merge);
};
template struct PrivateMember<Merge, &STLSurfaceCreator::mergeTwoMeshes>;

struct Clean
{
    using Member = void (STLSurfaceCreator::*)(geometry::Mesh&, std::atomic<bool> const&) const;
    friend Member privateMember(Clean);
};
template struct PrivateMember<Clean, &STLSurfaceCreator::cleanSurfaceData>;

struct AddNormals
{
    using Member = void (STLSurfaceCreator::*)(geometry::Mesh&, std::atomic<bool> const&) const;
    friend Member privateMember(AddNormals);
};
template struct PrivateMember<AddNormals, &STLSurfaceCreator::addNormals>;

struct Finish
{
    using Member = STLSurfaceData* (STLSurfaceCreator::*)(int, int, geometry::Mesh&) const;
    friend Member privateMember(Finish);
};
template struct PrivateMember<Finish, &STLSurfaceCreator::createCleanedSTLSurfaceDataFromMesh>;

} // namespace support
