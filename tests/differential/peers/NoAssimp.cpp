#include "differential/peers/Peers.h"

namespace peers {

bool hasAssimp()
{
    return false;
}

std::optional<PeerMesh> loadWithAssimp(QString const&)
{
    return {};
}

bool saveWithAssimp(geometry::Mesh const&, QString const&, char const*)
{
    return false;
}

} // namespace peers
