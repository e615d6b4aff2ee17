#pragma once

#include <QByteArrayView>
#include <QIODevice>

#include <vector>

namespace text {

/// The longest line that is read, in characters with its end. A line is a handful of numbers; one without an
/// end would take several times its bytes of memory.
constexpr qsizetype longestLine = qsizetype(4) * 1024 * 1024;

bool isAscii(QByteArrayView bytes);

/// The lines of a device as bytes, many at a time, cut as `QTextStream::readLine` cuts text of one byte a
/// character: at line feeds, without one carriage return before the line feed or at the end of the data.
/// Holds as much of the device as its longest line, or a block.
class ByteLines
{
public:
    /// Reads from where the device is. The device stays the caller's.
    explicit ByteLines(QIODevice& device);

    /// Sees to it that a whole line lies at `text`. False at the end of the data, and at a line beyond
    /// `longestLine`. Throws std::bad_alloc.
    bool fetch();
    /// After that: whether it was such a line.
    bool isLineTooLong() const { return filled > next && wholeLines == 0; }
    /// The first byte of the line. A line feed follows sooner or later, at the end of the data too.
    char const* text() const { return buffer.data() + next; }
    /// Behind the last line feed that is at hand.
    char const* end() const { return buffer.data() + wholeLines; }
    /// The line without its end.
    QByteArrayView line() const;
    /// Goes on behind the line, which `end` is the end of: the byte behind its line feed.
    void goTo(char const* end) { next = end - buffer.data(); }
    /// Goes on behind the line that `line()` gave.
    void goBehind(QByteArrayView line);

private:
    bool readMore();
    void endLastLine();

    QIODevice& device;
    std::vector<char> buffer;
    qsizetype next = 0;
    qsizetype wholeLines = 0; // where the whole lines from `next` on end
    qsizetype filled = 0;
};

} // namespace text
