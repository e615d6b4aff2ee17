#include "stl/STLSurfaceCreator.h"

#include "framework/MemoryGuard.h"
#include "inhouse/data/Conversions.h"
#include "inhouse/meshoperations/NormalsCalculator.h"
#include "stl/STLCleaning.h"
#include "stl/STLFacets.h"
#include "stl/STLLayout.h"
#include "stl/STLTagHandler.h"

#include <QDataStream>

#include <algorithm>
#include <vector>

namespace {

constexpr float sharpEdgeThreshold = 0.5f;
constexpr int verticesPerTriangle = 3;
constexpr int coordinatesPerVertex = 3;
constexpr int restart = -1;

using Tag = std::pair<int, int>;
constexpr int untagged = 0;
constexpr int none = -1;

Tag tagOf(stl::AttributeWord const& word)
{
    return {static_cast<unsigned char>(word.bytes[1]), static_cast<signed char>(word.bytes[0])};
}

using OwnedSurfaces = std::vector<std::unique_ptr<STLSurfaceData>>;

QList<STLSurfaceData*> handedOut(OwnedSurfaces& surfaces)
{
    // Appended one by one: a list's constructor does not look whether it got its memory.
    QList<STLSurfaceData*> result;
    for (std::unique_ptr<STLSurfaceData> const& surface : surfaces)
        result.append(surface.get());
    for (std::unique_ptr<STLSurfaceData>& surface : surfaces)
        static_cast<void>(surface.release());
    return result;
}

// In place, as a tag may come back in every second facet: copying the mesh for each run would take
// quadratic time.
void appendMesh(geometry::Mesh& mesh, geometry::Mesh const& more)
{
    int const shift = mesh.getNumVertices();
    mesh.vertices.append(more.vertices);
    qsizetype const start = mesh.indices.size();
    mesh.indices.resize(start + more.indices.size());
    std::transform(more.indices.cbegin(), more.indices.cend(), mesh.indices.begin() + start,
                   [shift](int index) { return index < 0 ? index : index + shift; });
}

// 0, 1, 2, -1, 3, 4, 5, -1 and so on.
void fillStrips(int triangles, int* next)
{
    for (int index = 0; index < verticesPerTriangle * triangles; index += verticesPerTriangle) {
        *next++ = index;
        *next++ = index + 1;
        *next++ = index + 2;
        *next++ = restart;
    }
}

QList<int> stripList(int triangles)
{
    QList<int> strips;
    strips.resize(qsizetype(stl::indicesPerTriangle) * triangles);
    fillStrips(triangles, strips.data());
    return strips;
}

} // namespace

STLSurfaceCreator::STLSurfaceCreator(STLTagHandler const* tagHandler_, bool sharpEdges_)
    : tagHandler(tagHandler_)
    , sharpEdges(sharpEdges_)
{}

STLSurfaceCreator::~STLSurfaceCreator()
{
    removeSurfaceData();
}

void STLSurfaceCreator::read(QDataStream& stream, STLDataFormat const& format,
                             std::atomic<bool> const& cancel)
{
    removeSurfaceData();
    isOutOfMemory = !memory::succeeds([&] {
        readSurfaces(stream, format, cancel);
        return true;
    });
}

bool STLSurfaceCreator::ranOutOfMemory() const
{
    return isOutOfMemory;
}

void STLSurfaceCreator::readSurfaces(QDataStream& stream, STLDataFormat const& format,
                                     std::atomic<bool> const& cancel)
{
    if (tagHandler && tagHandler->hasTags()) {
        surfaces = getTaggedSurfaces(stream, format, cancel);
        return;
    }
    OwnedSurfaces single;
    single.emplace_back(getSurface(stream, format, cancel));
    surfaces = handedOut(single);
}

QList<STLSurfaceData*> STLSurfaceCreator::getSTLSurfaceData() const
{
    return surfaces;
}

QList<STLSurfaceData*> STLSurfaceCreator::takeSTLSurfaceData()
{
    return std::exchange(surfaces, {});
}

void STLSurfaceCreator::removeSurfaceData()
{
    qDeleteAll(surfaces);
    surfaces.clear();
}

STLSurfaceData* STLSurfaceCreator::getSurface(QDataStream& stream, STLDataFormat const& format,
                                              std::atomic<bool> const& cancel)
{
    removeSurfaceData();
    int const facets = stl::facetsPresent(stream, format, format.numberOfTriangles, format.firstVertexOffset);
    int const vertexCount = verticesPerTriangle * facets;
    // As for a run of facets, but for the strips, which become the list of the result: memory that is touched
    // for the first time costs more than what is put there.
    geometry::Mesh mesh =
        stl::cleanedMesh({getVerticesFromStream(stream, format, vertexCount, format.firstVertexOffset),
                          vertexCount, stripList(facets)},
                         facets, cancel);
    addNormals(mesh, cancel);
    return new STLSurfaceData(untagged, mesh, {}, none);
}

QList<STLSurfaceData*> STLSurfaceCreator::getTaggedSurfaces(QDataStream& stream, STLDataFormat const& format,
                                                            std::atomic<bool> const& cancel)
{
    TagRuns const runs = getSurfaceTagDataByTag(stream, format);
    OwnedSurfaces result;
    QMap<int, geometry::Mesh> rest;
    for (auto key = runs.cbegin(); key != runs.cend(); ++key) {
        std::optional<geometry::Mesh> mesh = createMeshFromRuns(key.value(), stream, format, cancel);
        if (!mesh)
            return handedOut(result);
        auto const [tag, subTag] = key.key();
        std::unique_ptr<STLSurfaceData> surface(createCleanedSTLSurfaceDataFromMesh(tag, subTag, *mesh));
        if (tagHandler->isAllowed(tag))
            result.push_back(std::move(surface));
        else
            addToRest(rest[subTag], surface->getMesh());
    }
    for (auto mesh = rest.begin(); mesh != rest.end(); ++mesh)
        if (!mesh->isNull())
            result.emplace_back(createCleanedSTLSurfaceDataFromMesh(none, mesh.key(), *mesh));
    return handedOut(result);
}

STLSurfaceCreator::TagRuns STLSurfaceCreator::getSurfaceTagDataByTag(QDataStream& stream,
                                                                     STLDataFormat const& format)
{
    TagRuns runs;
    Tag current = {none, none};
    STLTagSurfaceData run = {};
    stl::AttributeReader attributes(stream.device(), format);
    bool isThere = stl::isWalkable(format);
    for (qint64 position = format.firstVertexOffset; isThere && position < format.dataSize;
         position += format.recordSize) {
        stl::AttributeWord const word = attributes.read(position);
        if (!word.isComplete && !stl::hasByteAt(stream.device(), position))
            break;
        Tag const tag = tagOf(word);
        if (current != tag) {
            if (current.first != none)
                runs[current].append(run);
            current = tag;
            run = {tag.first, tag.second, 0, static_cast<int>(position)};
        }
        ++run.numberOfTriangles;
        // What follows is not there either and would read as facets of nothing but zeros.
        isThere = word.isComplete;
    }
    runs[current].append(run);
    return runs;
}

STLTagSurfaceData STLSurfaceCreator::getSurfaceTagDataByTag(int tag,
                                                            QList<STLTagSurfaceData> const& list) const
{
    auto const found = std::find_if(list.begin(), list.end(),
                                    [tag](STLTagSurfaceData const& run) { return run.tag == tag; });
    return found == list.end() ? STLTagSurfaceData() : *found;
}

std::optional<geometry::Mesh> STLSurfaceCreator::createMeshFromRuns(QList<STLTagSurfaceData> const& runs,
                                                                    QDataStream& stream,
                                                                    STLDataFormat const& format,
                                                                    std::atomic<bool> const& cancel) const
{
    geometry::Mesh mesh;
    for (STLTagSurfaceData const& run : runs) {
        if (cancel)
            return {};
        geometry::Mesh next = createMeshFromSurfaceData(run, stream, format);
        if (mesh.isNull())
            mesh = std::move(next);
        else
            appendMesh(mesh, next);
    }
    return mesh;
}

geometry::Mesh STLSurfaceCreator::createMeshFromSurfaceData(STLTagSurfaceData const& run, QDataStream& stream,
                                                            STLDataFormat const& format) const
{
    std::atomic<bool> const cancel = false;
    int const triangles = run.numberOfTriangles;
    int const vertexCount = verticesPerTriangle * triangles;
    int const indexCount = stl::indicesPerTriangle * triangles;
    auto vertices = getVerticesFromStream(stream, format, vertexCount, run.streamOffset);
    auto const strips = getStripsFromStream(triangles, indexCount);
    return stl::cleanedMesh(
        {std::move(vertices), vertexCount, data::Conversions::toVector(strips.get(), indexCount)}, triangles,
        cancel);
}

std::unique_ptr<float[]> STLSurfaceCreator::getVerticesFromStream(QDataStream& stream,
                                                                  STLDataFormat const& format,
                                                                  int vertexCount, int offset) const
{
    std::size_t const size = coordinatesPerVertex * static_cast<std::size_t>(vertexCount);
    auto vertices = std::make_unique_for_overwrite<float[]>(size);
    stl::readVertices(stream, format, offset, vertexCount / verticesPerTriangle, vertices.get());
    return vertices;
}

std::unique_ptr<int[]> STLSurfaceCreator::getStripsFromStream(int triangleCount, int indexCount) const
{
    auto strips = std::make_unique<int[]>(static_cast<std::size_t>(indexCount));
    int const triangles = std::min(triangleCount, indexCount / stl::indicesPerTriangle);
    fillStrips(triangles, strips.get());
    return strips;
}

void STLSurfaceCreator::cleanSurfaceData(geometry::Mesh& mesh, std::atomic<bool> const& cancel) const
{
    stl::cleanMesh(mesh, mesh.getNumIndices() / stl::indicesPerTriangle, cancel);
}

void STLSurfaceCreator::addNormals(geometry::Mesh& mesh, std::atomic<bool> const& cancel) const
{
    mesh = sharpEdges ? NormalsCalculator::computeSharpEdgeNormals(mesh, sharpEdgeThreshold, cancel)
                      : NormalsCalculator::computeGouraudNormals(mesh, cancel);
}

STLSurfaceData* STLSurfaceCreator::createCleanedSTLSurfaceDataFromMesh(int tag, int subTag,
                                                                       geometry::Mesh& mesh) const
{
    std::atomic<bool> const cancel = false;
    cleanSurfaceData(mesh, cancel);
    addNormals(mesh, cancel);
    return new STLSurfaceData(tag, mesh, {}, subTag);
}

void STLSurfaceCreator::addToRest(geometry::Mesh& rest, geometry::Mesh const& mesh) const
{
    rest = rest.isNull() ? mesh : mergeTwoMeshes(rest, mesh);
}

geometry::Mesh STLSurfaceCreator::mergeTwoMeshes(geometry::Mesh const& a, geometry::Mesh const& b) const
{
    geometry::Mesh merged(a.vertices, a.indices);
    appendMesh(merged, b);
    return merged;
}
