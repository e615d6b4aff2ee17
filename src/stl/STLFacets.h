#pragma once

#include "stl/STLDataFormat.h"

#include <QtGlobal>

QT_FORWARD_DECLARE_CLASS(QDataStream)
QT_FORWARD_DECLARE_CLASS(QIODevice)

namespace stl {

/// Moves to `position`. False, without asking the device, where it is sequential or ends before: Qt logs
/// such a request.
bool seekTo(QIODevice* device, qint64 position);

/// How many of `claimed` facet records from byte `offset` on (of a facet's first vertex) have vertex bytes on
/// the device; a record cut short counts. Asks the device for bytes, as its size may be a claim as well, in
/// as many steps as the claim has bits. 0 for a claim that is negative or has bytes for more
/// facets than an index list of ints can hold.
int facetsPresent(QDataStream& stream, STLDataFormat const& format, int claimed, qint64 offset);

} // namespace stl
