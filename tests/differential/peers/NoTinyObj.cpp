#include "differential/peers/Peers.h"

namespace peers {

bool hasTinyObj()
{
    return false;
}

std::optional<PeerMesh> loadWithTinyObj(QString const&)
{
    return {};
}

} // namespace peers
