#pragma once

#include "framework/Export.h"
#include "inhouse/data/Mesh.h"
#include "inhouse/data/STLSurfaceData.h"
#include "stl/STLDataFormat.h"
#include "stl/STLTagSurfaceData.h"

#include <QList>
#include <QMap>

#include <atomic>
#include <memory>
#include <optional>
#include <utility>

QT_FORWARD_DECLARE_CLASS(QDataStream)
class STLTagHandler;

/// Makes surfaces of the facets of a binary STL stream: one for the whole file, or one for each facet tag.
///
/// A facet's two attribute bytes are its tag: byte 1 (unsigned) the `tag`, byte 0 (signed) the `subTag`. With
/// a handler that has tags, the facets of every (tag, subTag) become one surface, in ascending order of tag,
/// then subTag; those whose tag the handler does not allow are gathered into one surface of tag -1 for each
/// subTag, after all others. Without, there is exactly one surface, of tag 0 and subTag -1.
///
/// Every surface is cleaned (VarnixSurfaceCleaner), has normals (NormalsCalculator; sharp edges split beyond
/// 0.5 radian, or smooth) and the identity as its transform. Coordinates stay as in the file, taken as
/// millimetres; the facet normals of the file are not used. Nothing is logged.
///
/// One thread at a time.
class SURFACEIO_EXPORT STLSurfaceCreator
{
public:
    /// `tagHandler` is not owned and may be null, which means no tags; it lives as long as this creator and
    /// its copies.
    STLSurfaceCreator(STLTagHandler const* tagHandler, bool sharpEdges);
    /// Copies point to the same surfaces, which are not duplicated. Every creator deletes what it still
    /// holds, so take the surfaces out of all but one of the copies before the first of them reads or dies.
    STLSurfaceCreator(STLSurfaceCreator const&) = default;
    /// As the copy constructor. What the target held is forgotten, not deleted: take it out before.
    STLSurfaceCreator& operator=(STLSurfaceCreator const&) = default;
    /// Deletes the surfaces that are still held.
    virtual ~STLSurfaceCreator();

    /// Deletes the surfaces held, then makes those of `stream`, a random-access stream set to the byte order
    /// and precision of its floats.
    ///
    /// `format` says where the facets lie; its counts are not trusted: facets of which no byte is there make
    /// nothing, and a facet cut short reads as zeros from there on. `dataSize` has 31 bits, so splitting by
    /// tags sees no facet of a file of 2 to 4 GiB, and the first `dataSize` bytes of a larger one.
    ///
    /// `cancel` is polled before each key and each further run of a key when splitting by tags, and the
    /// surfaces made so far stay; without tags it reaches the cleaner and the normals, and the one surface
    /// may be empty. Where memory does not suffice nothing is held afterwards, and `ranOutOfMemory` says so.
    virtual void read(QDataStream& stream, STLDataFormat const& format, std::atomic<bool> const& cancel);
    /// Whether memory did not suffice for the last read.
    bool ranOutOfMemory() const;

    /// The surfaces held; they stay owned here.
    QList<STLSurfaceData*> getSTLSurfaceData() const;
    /// Hands the surfaces over to the caller, who deletes them; nothing is held afterwards.
    QList<STLSurfaceData*> takeSTLSurfaceData();

private:
    using Tag = std::pair<int, int>;
    using TagRuns = QMap<Tag, QList<STLTagSurfaceData>>;

    void readSurfaces(QDataStream& stream, STLDataFormat const& format, std::atomic<bool> const& cancel);
    void removeSurfaceData();
    STLSurfaceData* getSurface(QDataStream& stream, STLDataFormat const& format,
                               std::atomic<bool> const& cancel);
    QList<STLSurfaceData*> getTaggedSurfaces(QDataStream& stream, STLDataFormat const& format,
                                             std::atomic<bool> const& cancel);
    TagRuns getSurfaceTagDataByTag(QDataStream& stream, STLDataFormat const& format);
    STLTagSurfaceData getSurfaceTagDataByTag(int tag, QList<STLTagSurfaceData> const& list) const;
    std::optional<geometry::Mesh> createMeshFromRuns(QList<STLTagSurfaceData> const& runs,
                                                     QDataStream& stream, STLDataFormat const& format,
                                                     std::atomic<bool> const& cancel) const;
    geometry::Mesh createMeshFromSurfaceData(STLTagSurfaceData const& run, QDataStream& stream,
                                             STLDataFormat const& format) const;
    std::unique_ptr<float[]> getVerticesFromStream(QDataStream& stream, STLDataFormat const& format,
                                                   int vertexCount, int offset) const;
    std::unique_ptr<int[]> getStripsFromStream(int triangleCount, int indexCount) const;
    void cleanSurfaceData(geometry::Mesh& mesh, std::atomic<bool> const& cancel) const;
    void addNormals(geometry::Mesh& mesh, std::atomic<bool> const& cancel) const;
    STLSurfaceData* createCleanedSTLSurfaceDataFromMesh(int tag, int subTag, geometry::Mesh& mesh) const;
    void addToRest(geometry::Mesh& rest, geometry::Mesh const& mesh) const;
    geometry::Mesh mergeTwoMeshes(geometry::Mesh const& a, geometry::Mesh const& b) const;

    QList<STLSurfaceData*> surfaces;
    STLTagHandler const* tagHandler;
    bool sharpEdges;
    bool isOutOfMemory = false;
};
