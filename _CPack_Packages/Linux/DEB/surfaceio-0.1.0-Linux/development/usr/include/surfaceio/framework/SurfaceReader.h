#pragma once

#include "framework/Export.h"
#include "inhouse/data/Mesh.h"

#include <QImage>
#include <QMatrix4x4>
#include <QObject>
#include <QString>

#include <atomic>

/// Base of the readers that turn one file into one surface.
///
/// Construct a reader, configure it (`setFileName`, `setTextureSupport`), call `read`, and copy the result
/// out with `getMesh`, `getTransform` and `getTexture`. The reader owns its result until the next `read` or
/// its destruction.
///
/// Threads: one thread uses a reader at a time; different readers are independent. Only the `cancel` flag
/// of a running operation may be set from elsewhere. It is polled for each unit of work (a line, a vertex, a
/// face, a value); once it is set the operation returns its failure result without a message. No reader
/// ever sets or resets it.
///
/// Failures are results, never exceptions; the reason goes to Qt's message log.
class SURFACEIO_EXPORT SurfaceReader : public QObject
{
    Q_OBJECT

public:
    /// What becomes of a texture, and of texture coordinates.
    enum TextureSupport
    {
        /// Look colours up in the texture and keep them as vertex colours; none is fine too.
        VertexColorsOptional = 0,
        /// The same, but a reader may treat a result without vertex colours as a failure.
        VertexColorsRequired = 1,
        /// Keep texture and texture coordinates where the file has both, else an untextured result.
        TextureOptional = 2,
        /// Keep texture and texture coordinates; a file without them fails to read.
        TextureRequired = 3
    };

    /// `sharpEdges` chooses the normals that a reader computes for a file without any: split at creases
    /// (true) or smooth (false).
    explicit SurfaceReader(bool sharpEdges);
    ~SurfaceReader() override;

    /// Remembers the path of the file to read, without opening anything. Texture and material files are
    /// looked for relative to its directory.
    virtual void setFileName(QString const& fileName);
    /// Reads the file. True on success; the getters then hold the result.
    virtual bool read(std::atomic<bool> const& cancel) = 0;
    /// The surface, in millimetres; empty before the first successful read. Valid while the reader lives.
    virtual geometry::Mesh const& getMesh() const;
    /// Where the surface is placed; the identity for formats that know no placement.
    virtual QMatrix4x4 const& getTransform() const;
    /// The texture of a textured result, else a null image. Valid while the reader lives.
    QImage const& getTexture() const;

    /// Sets the texture policy; call before `read`. `VertexColorsOptional` until then.
    void setTextureSupport(TextureSupport support);
    /// Whether the policy asks for a texture rather than for vertex colours.
    bool isTextureSupportRequested() const;

protected:
    /// Replaces the mesh by a copy with normals: sharp-edge normals with a threshold of 1 radian, or smooth
    /// ones. True when the resulting mesh has points; cancellation leaves an empty mesh.
    bool computeNormals(std::atomic<bool> const& cancel);

    /// Path of the file to read; its directory is where texture files are looked for.
    QString fileName;
    /// The result.
    geometry::Mesh mesh;
    /// Placement of the result.
    QMatrix4x4 transform;
    /// Which normals `computeNormals` makes.
    bool sharpEdges;
    /// The policy that the caller asked for.
    TextureSupport textureSupport = VertexColorsOptional;
    /// Texture of a textured result.
    QImage texture;
};
