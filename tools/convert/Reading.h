#pragma once

#include "Interrupt.h"

#include <QFile>

namespace tool {

/// How a file is read: what stops it, and who is told how far it is.
struct Reading
{
    std::atomic<bool> const& cancel = Interrupt::flag();
    /// Grows to the bytes that were read, for formats whose reader takes a device. May be null.
    std::atomic<qint64>* bytesRead = nullptr;
};

/// A file that counts the bytes that are read from it. What is read twice counts twice.
class CountedFile : public QFile
{
public:
    CountedFile(QString const& path, Reading const& reading)
        : QFile(path)
        , counter(reading.bytesRead)
    {}

protected:
    qint64 readData(char* data, qint64 maxSize) override
    {
        qint64 const count = QFile::readData(data, maxSize);
        if (counter != nullptr && count > 0)
            *counter += count;
        return count;
    }

private:
    std::atomic<qint64>* counter;
};

} // namespace tool
