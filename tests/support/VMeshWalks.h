#pragma once

#include "support/PrivateAccess.h"
#include "vmesh/MTModelVMeshParser.h"

/// The two ways of the volume-mesh parser through a file, and the member that takes one of them.
namespace support {

using VMeshWalk = bool (MTModelVMeshParser::*)(QIODevice&, qint64&);

struct ReadWith
{
    using Member = bool (MTModelVMeshParser::*)(VMeshWalk);
    friend Member privateMember(ReadWith);
};
template struct PrivateMember<ReadWith, &MTModelVMeshParser::readWith>;

struct ReadText
{
    using Member = VMeshWalk;
    friend Member privateMember(ReadText);
};
template struct PrivateMember<ReadText, &MTModelVMeshParser::readText>;

struct ReadBytes
{
    using Member = VMeshWalk;
    friend Member privateMember(ReadBytes);
};
template struct PrivateMember<ReadBytes, &MTModelVMeshParser::readBytes>;

} // namespace support
