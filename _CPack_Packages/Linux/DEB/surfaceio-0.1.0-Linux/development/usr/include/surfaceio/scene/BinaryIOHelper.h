#pragma once

#include "framework/Export.h"
#include "inhouse/data/Optional.h"

#include <string>
#include <utility>

class QDataStream;

/// The header that says which version a binary file is of.
///
/// | offset | bytes | content |
/// |---|---|---|
/// | 0 | 4 | length of the magic text, 38, **little-endian** |
/// | 4 | 38 | the magic text in ASCII, without a terminator |
/// | 42 | 4 | major version, in the stream's byte order (big-endian unless it was changed) |
/// | 46 | 4 | minor version, likewise |
///
/// The two byte orders are part of the format. Nothing is logged. Stateless; a stream is used by one thread
/// at a time.
class SURFACEIO_EXPORT BinaryIOHelper
{
public:
    BinaryIOHelper() = delete;

    /// Writes the length of `magic` (4 bytes, little-endian, its low 32 bits) and then its bytes. The
    /// stream's status tells whether it took them.
    static void writeMagicString(QDataStream& stream, std::string const& magic);

    /// Whether the stream goes on with exactly `expected`, framed as `writeMagicString` does it; letter case
    /// counts. The stream then stands after it.
    ///
    /// On false it stands where it stood, on a sequential device too, and its status is `ReadPastEnd`, as
    /// after any transaction of `QDataStream` that was rolled back: call `resetStatus()` to read on. Inside
    /// a transaction of the caller, only the rollback of that one restores the position.
    static bool readAndCheckMagicString(QDataStream& stream, std::string const& expected);

    /// Writes the magic text of versioned files and the two numbers.
    static void writeVersion(QDataStream& stream, unsigned major, unsigned minor);

    /// The version (major, minor) that the stream goes on with; empty, and as after
    /// `readAndCheckMagicString`, when the magic text is not there. Numbers cut off read as 0, and the
    /// status tells.
    static utility::Optional<std::pair<unsigned, unsigned>> readVersion(QDataStream& stream);
};
