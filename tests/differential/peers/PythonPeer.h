#pragma once

#include "differential/peers/Peers.h"

#include <QStringList>

namespace peers {

/// A program that is a Python package: "meshio" or "open3d". Each call starts an interpreter, so that files
/// are best handed over many at a time.
class PythonPeer
{
public:
    explicit PythonPeer(QString program);

    /// Whether an interpreter was found that has the package.
    bool isThere() const { return !interpreter.isEmpty(); }
    /// What it makes of each file; nothing where it refuses.
    QList<std::optional<PeerMesh>> load(QStringList const& paths) const;
    /// Whether it wrote all of them, by suffix as binary PLY or as OBJ. `precision` of the coordinates, where
    /// the program asks: "float32" or "float64". Alpha is written where the program knows it.
    bool save(QList<geometry::Mesh> const& meshes, QStringList const& paths,
              QString const& precision = QStringLiteral("float32")) const;

private:
    QString program;
    QString interpreter;
};

} // namespace peers
