#include "Fuzz.h"
#include "framework/MeshReader.h"
#include "framework/MeshWriter.h"

#include <memory>
#include <tuple>

namespace {

using namespace Qt::StringLiterals;

constexpr int untouched = -77;

struct Record
{
    bool success = false;
    int numVertices = untouched;
    int numIndices = untouched;
    std::unique_ptr<float[]> vertices;
    std::unique_ptr<float[]> normals;
    std::unique_ptr<int[]> indices;
    QStringList log;
};

Record read(QString const& path)
{
    Record record;
    float* vertices = nullptr;
    float* normals = nullptr;
    int* indices = nullptr;
    fuzz::silence();
    record.success =
        MeshReader::read(path, &record.numVertices, &vertices, &normals, &record.numIndices, &indices);
    record.vertices.reset(vertices);
    record.normals.reset(normals);
    record.indices.reset(indices);
    record.log = fuzz::messages();
    return record;
}

template <typename Value>
bool sameArray(std::unique_ptr<Value[]> const& a, std::unique_ptr<Value[]> const& b, qint64 count)
{
    return count == 0 || std::memcmp(a.get(), b.get(), static_cast<std::size_t>(count) * sizeof(Value)) == 0;
}

// Looks at every value of the arrays.
void requireSame(Record const& a, Record const& b)
{
    fuzz::require(a.success == b.success && a.numVertices == b.numVertices && a.numIndices == b.numIndices);
    if (!a.success)
        return;
    fuzz::require(sameArray(a.vertices, b.vertices, qint64(3) * a.numVertices) &&
                  sameArray(a.normals, b.normals, qint64(3) * a.numVertices) &&
                  sameArray(a.indices, b.indices, a.numIndices));
}

void requireUntouched(Record const& record)
{
    fuzz::require(record.numVertices == untouched && record.numIndices == untouched && !record.vertices &&
                  !record.normals && !record.indices && record.log.isEmpty());
}

// What was read fits single floats, so that it comes back to the bit.
void requireRewritten(Record const& record, QString const& path)
{
    fuzz::require(MeshWriter::write(path, record.numVertices, record.vertices.get(), record.normals.get(),
                                    record.numIndices, record.indices.get()));
    Record const again = read(path);
    fuzz::require(again.log.isEmpty());
    requireSame(again, record);
}

} // namespace

// The input as a mesh array record.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    static fuzz::ScratchFolder const folder;
    QString const path = folder.write(u"record"_s, fuzz::bytesOf(data, size));
    Record const record = read(path);
    Record const second = read(path);
    requireSame(record, second);
    fuzz::require(second.log == record.log);
    if (!record.success)
        requireUntouched(record);
    constexpr int small = 1 << 16;
    if (record.success && record.numVertices < small && record.numIndices < small)
        requireRewritten(record, folder.path(u"written"_s));
    return 0;
}
