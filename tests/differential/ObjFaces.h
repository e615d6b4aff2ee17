#pragma once

#include "differential/peers/Peers.h"
#include "inhouse/data/Mesh.h"
#include "obj/OBJReader.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <array>
#include <optional>

/// What a surface is to every reader of OBJ, however it numbers its vertices: the corners of its faces.
namespace objfaces {

/// One corner of a face. What the file does not give is 0.
struct Triple
{
    std::array<float, 3> position{};
    std::array<float, 3> normal{};
    std::array<float, 2> uv{};
};

/// The corners, three for each face, and what of them the file gives.
struct Faces
{
    QList<Triple> corners;
    bool hasNormals = false;
    bool hasUvs = false;
};

Faces facesOf(peers::PeerMesh const& mesh);
/// Normals that the file does not give are computed, and of no interest here.
Faces facesOf(geometry::Mesh const& mesh, bool withNormals);

/// The first difference; no text where there is none. Numbers may be `steps` representable ones apart.
QString differenceOf(Faces const& ours, Faces const& theirs, quint32 steps);

/// A reader of OBJ files, and how many representable numbers it may be off.
struct Peer
{
    char const* name;
    bool isThere;
    std::optional<peers::PeerMesh> (*load)(QString const&);
    quint32 steps;
};
QList<Peer> allPeers();

/// The mesh of an OBJ text whose faces all get the texture of "one.mtl" in `folder`, whatever the text says
/// of materials: texture coordinates are kept where there is a texture.
geometry::Mesh readWithOneTexture(QByteArray const& text, QString const& folder, OBJReader::Error& code);

} // namespace objfaces
