#include "differential/peers/Peers.h"

namespace peers {

bool hasVtk()
{
    return false;
}

std::optional<PeerMesh> loadWithVtk(QString const&)
{
    return {};
}

bool saveWithVtk(geometry::Mesh const&, QString const&, bool)
{
    return false;
}

} // namespace peers
