#include "inhouse/data/ShapeStream_p.h"

namespace shapestream {

bool readBytes(QDataStream& stream, char* target, int count)
{
    int done = 0;
    while (done < count) {
        int const arrived = stream.readRawData(target + done, count - done);
        if (arrived <= 0)
            break;
        done += arrived;
        // A device may hand out less than it was asked for without being at its end.
        if (done < count)
            stream.resetStatus();
    }
    if (done < count)
        stream.setStatus(QDataStream::ReadPastEnd);
    return done == count;
}

bool writeBytes(QDataStream& stream, char const* bytes, int count)
{
    return stream.writeRawData(bytes, count) == count;
}

bool readFlag(QDataStream& stream, bool& flag)
{
    quint8 byte = 0;
    if (!readWord(stream, byte))
        return false;
    if (byte > 1) {
        stream.setStatus(QDataStream::ReadCorruptData);
        return false;
    }
    flag = byte == 1;
    return true;
}

} // namespace shapestream
