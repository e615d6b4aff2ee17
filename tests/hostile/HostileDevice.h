#pragma once

#include <QByteArray>
#include <QIODevice>

#include <algorithm>
#include <cstring>

namespace hostile {

/// How a device ends that promises more.
enum class Ending
{
    Nothing, ///< `readData` gives 0
    Error    ///< `readData` gives -1
};

/// Hands out `bytes`, `chunk` at a time, and then nothing more, though it promises `promised` bytes and never
/// says that it is at its end.
///
/// A reader that goes on asking all the same would never return. After 10 000 questions without a byte
/// in between the process is ended with a message, so that a test fails rather than hangs.
class HostileDevice : public QIODevice
{
public:
    struct Lie
    {
        qint64 promised;
        qint64 chunk;
        Ending ending;
        bool sequential;
    };

    HostileDevice(QByteArray bytes_, Lie const& lie_)
        : bytes(std::move(bytes_))
        , lie(lie_)
    {}

    bool isSequential() const override { return lie.sequential; }
    qint64 size() const override { return asked(lie.sequential ? 0 : lie.promised); }
    bool atEnd() const override { return asked(false); }
    qint64 bytesAvailable() const override { return asked(std::max<qint64>(1, lie.promised - position())); }

protected:
    qint64 readData(char* target, qint64 maxSize) override
    {
        qint64 const count = std::min({maxSize, lie.chunk, qint64(bytes.size()) - position()});
        if (count <= 0)
            return asked(lie.ending == Ending::Error ? -1 : 0);
        std::memcpy(target, bytes.constData() + position(), static_cast<std::size_t>(count));
        next += count;
        questions = 0;
        return count;
    }
    qint64 writeData(char const*, qint64) override { return -1; }

private:
    qint64 position() const { return lie.sequential ? next : pos(); }

    template <typename Answer>
    Answer asked(Answer answer) const
    {
        constexpr int mostQuestions = 10'000;
        if (++questions > mostQuestions)
            qFatal("a device that gives nothing more was asked 10000 times");
        return answer;
    }

    QByteArray bytes;
    Lie lie;
    qint64 next = 0;
    mutable int questions = 0;
};

} // namespace hostile
