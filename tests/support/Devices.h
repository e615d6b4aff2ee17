#pragma once

#include <QByteArray>
#include <QIODevice>

#include <algorithm>
#include <atomic>
#include <cstring>

namespace support {

/// A random-access device over bytes that hands out at most `chunk` of them a call.
class TrickleDevice : public QIODevice
{
public:
    explicit TrickleDevice(QByteArray bytes_, qint64 chunk_ = 7)
        : bytes(std::move(bytes_))
        , chunk(chunk_)
    {}

    qint64 size() const override { return bytes.size(); }

protected:
    qint64 readData(char* target, qint64 maxSize) override
    {
        // A random-access QIODevice asks at its own position.
        qint64 const available = std::max<qint64>(0, bytes.size() - pos());
        qint64 const count = std::min({maxSize, chunk, available});
        if (count > 0)
            std::memcpy(target, bytes.constData() + pos(), static_cast<std::size_t>(count));
        return count == 0 && maxSize > 0 ? -1 : count;
    }
    qint64 writeData(char const*, qint64) override { return -1; }

private:
    QByteArray bytes;
    qint64 chunk;
};

/// Hands out one byte a call, and sets the flag when the byte at `offset` is asked for.
class CancellingDevice : public TrickleDevice
{
public:
    CancellingDevice(QByteArray const& content, qint64 offset_)
        : TrickleDevice(content, 1)
        , offset(offset_)
    {}

    std::atomic<bool> cancel = false;

protected:
    qint64 readData(char* target, qint64 maxSize) override
    {
        if (pos() >= offset)
            cancel = true;
        return TrickleDevice::readData(target, maxSize);
    }

private:
    qint64 offset;
};

/// A sequential device over bytes, as a pipe or socket is: no size, no seeking.
class SequentialDevice : public QIODevice
{
public:
    explicit SequentialDevice(QByteArray bytes_, qint64 chunk_ = 4096)
        : bytes(std::move(bytes_))
        , chunk(chunk_)
    {}

    bool isSequential() const override { return true; }
    qint64 bytesAvailable() const override { return bytes.size() - next + QIODevice::bytesAvailable(); }

protected:
    qint64 readData(char* target, qint64 maxSize) override
    {
        qint64 const count = std::min({maxSize, chunk, qint64(bytes.size()) - next});
        if (count > 0)
            std::memcpy(target, bytes.constData() + next, static_cast<std::size_t>(count));
        next += count;
        return count == 0 && maxSize > 0 ? -1 : count;
    }
    qint64 writeData(char const*, qint64) override { return -1; }

private:
    QByteArray bytes;
    qint64 chunk;
    qint64 next = 0;
};

/// A random-access device that claims `claimedSize` bytes, has fewer, and never says that it is at its end.
/// What is missing reads as `missing`: 0 for "nothing yet", -1 for an error.
class LyingDevice : public QIODevice
{
public:
    LyingDevice(QByteArray bytes_, qint64 claimedSize_, qint64 missing_)
        : bytes(std::move(bytes_))
        , claimedSize(claimedSize_)
        , missing(missing_)
    {}

    qint64 size() const override { return claimedSize; }
    bool atEnd() const override { return false; }

protected:
    qint64 readData(char* target, qint64 maxSize) override
    {
        qint64 const count = std::min(maxSize, bytes.size() - pos());
        if (count <= 0)
            return missing;
        std::memcpy(target, bytes.constData() + pos(), static_cast<std::size_t>(count));
        return count;
    }
    qint64 writeData(char const*, qint64) override { return -1; }

private:
    QByteArray bytes;
    qint64 claimedSize;
    qint64 missing;
};

} // namespace support
