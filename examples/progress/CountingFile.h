#pragma once

#include <QFile>

#include <algorithm>
#include <atomic>

/// A file that any thread may ask how far it has been read: what the readers of the library need no signals
/// for.
class CountingFile : public QFile
{
public:
    using QFile::QFile;

    /// The share of the file that has been taken, from 0 to 1.
    double progress() const
    {
        qint64 const all = total.load();
        return all > 0 ? double(taken.load()) / double(all) : 0;
    }

    bool open(OpenMode mode) override
    {
        bool const opened = QFile::open(mode);
        total = size();
        return opened;
    }

protected:
    // Readers may step back, so the place counts, not the sum.
    qint64 readData(char* data, qint64 maxBytes) override
    {
        qint64 const count = QFile::readData(data, maxBytes);
        if (count > 0)
            taken = std::max(taken.load(), pos() + count);
        return count;
    }

private:
    std::atomic<qint64> taken = 0;
    std::atomic<qint64> total = 0;
};
