#pragma once

#include "framework/SurfaceReader.h"
#include "inhouse/data/STLSurfaceData.h"

#include <QByteArray>
#include <QList>

#include <memory>
#include <optional>

QT_FORWARD_DECLARE_CLASS(QDataStream)
QT_FORWARD_DECLARE_CLASS(QIODevice)
QT_FORWARD_DECLARE_CLASS(QTextStream)
class STLSurfaceCreator;
class STLTagHandler;

/// Reads STL, ASCII or binary, into one surface, or a binary file into one surface for each facet tag.
///
/// A file whose first line, trimmed, starts with "solid" (this letter case) is ASCII; there is no second try,
/// so a binary file with such a header fails. Everything else is binary and must be exactly 84 + 50 * count
/// bytes long, compared in 32 bits.
///
/// ASCII: each line that starts with "vertex" after trimming makes a vertex of the second to fourth piece
/// between spaces (not tabs); everything else is skipped unseen, the structure of the file included. Three
/// vertices make a triangle. The result is the one mesh of this reader.
///
/// Binary: see `STLSurfaceCreator`, which makes the surfaces of this reader.
///
/// Coordinates come as in the file, taken as millimetres. Coincident vertices are merged and degenerate
/// facets dropped (VarnixSurfaceCleaner); normals are always computed, never taken from the file. Nothing is
/// logged: a failure is a false result.
class SURFACEIO_EXPORT STLReader : public SurfaceReader
{
    Q_OBJECT

public:
    /// `tagHandler` chooses the tags of binary files that become surfaces; it is not owned, lives as long
    /// as the reader, and may be null: one surface for the whole file. `sharpEdges` asks for normals that are
    /// split at edges sharper than 1 radian (ASCII) or 0.5 radian (binary), else they are smooth.
    STLReader(STLTagHandler const* tagHandler, bool sharpEdges, QString const& fileName);
    /// Deletes the surfaces that nobody took.
    ~STLReader() override;

    /// Reads the file of the name set. False also without a name, or when it cannot be opened.
    bool read(std::atomic<bool> const& cancel) override;
    /// Reads from `device`, which is opened here, read-only, and stays open; false when that fails, as it
    /// does for a QFile that is open. Binary data needs a random-access device and is read from its start;
    /// ASCII data may come from a sequential one.
    ///
    /// `cancel` is polled for each line (ASCII: the mesh held from an earlier read is then cleaned once more)
    /// or before the facets (binary), and by the steps of `STLSurfaceCreator::read`.
    ///
    /// False leaves the results of earlier reads as they were, but for cancellation, for an ASCII file
    /// without a usable facet, which leaves an empty mesh, and for want of memory. True for a binary file
    /// whose length fits, whatever surfaces it gives.
    bool read(QIODevice* device, std::atomic<bool> const& cancel);
    /// Reads `data` in the same way. A null array fails. `cancel` does not stop binary data.
    bool read(QByteArray const& data, std::atomic<bool> const& cancel);

    /// Whether `data` is as long as a binary STL file of the facet count at byte 80 would be. ("solid" at the
    /// start is not looked for.)
    static bool isValidStlFile(QByteArray const& data);

    /// The mesh of the first binary surface held, else that of the last ASCII read: an ASCII read after a
    /// binary one does not show here until the surfaces have been taken.
    geometry::Mesh const& getMesh() const override;
    /// The transform of the same surface; always the identity.
    QMatrix4x4 const& getTransform() const override;
    /// Hands the surfaces of the last binary read over to the caller, who deletes them.
    QList<STLSurfaceData*> takeSTLSurfaceDataSets() const;

private:
    bool readFromDevice(QIODevice* device, std::atomic<bool> const& cancel);
    bool readFromBytes(QByteArray const& data, std::atomic<bool> const& cancel);
    bool readAsciiDevice(QTextStream& text, std::atomic<bool> const& cancel);
    std::optional<bool> readAsciiBytes(QIODevice& device, std::atomic<bool> const& cancel);
    bool readAscii(QTextStream& stream, std::atomic<bool> const& cancel);
    bool storeAscii(geometry::Mesh read, std::atomic<bool> const& cancel);
    bool readBinary(QDataStream& stream, int const& size, std::atomic<bool> const& cancel);
    bool readFacets(QDataStream& stream, qint64 size, std::atomic<bool> const& cancel);
    void cleanSTLData();
    STLSurfaceData* getSTLSurfaceDataSet() const;

    std::unique_ptr<STLSurfaceCreator> surfaceCreator;
    /// Whether ASCII files are read as bytes. For tests: off, all is decoded.
    bool readsBytes = true;
};
