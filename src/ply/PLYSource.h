#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QIODevice>

/// A device's bytes for the two halves of a PLY file: first the header's lines, then the body.
///
/// For the header it hands out at most one line in one read, so that a `QTextStream` on it never holds
/// anything beyond the line that it returned: the first byte not yet handed out is the text stream's
/// logical position. (A text stream's own `pos()` decodes once more, byte by byte. After a byte that is not
/// UTF-8, which a Latin-1 comment is full of, the second decoding can count other characters than the
/// first.) Pieces of a line end behind an ASCII character, as a decoder that waits for the rest of a
/// character at the end of a read may swallow the line feed that comes next.
///
/// For the body it reads as often as it takes, so that a device that hands out few bytes at a time gives
/// the same values as a file does.
///
/// A read that gives nothing is the end, whatever the device says about its size. Sequential devices are
/// read from where they stand, all others from their start; at the end these are left behind the last byte
/// that was handed out, which sequential ones cannot be.
class PLYSource : public QIODevice
{
public:
    /// `device` is open for reading and outlives this object. Its text mode is off meanwhile.
    explicit PLYSource(QIODevice& device);
    ~PLYSource() override;

    /// Whether the device could be placed at its start.
    bool isReady() const { return ready; }
    /// Whether a header line was too long to be one. Nothing more is handed out then.
    bool hasEndlessLine() const { return endlessLine; }
    /// From here on bytes are bytes.
    void startBody() { inBody = true; }
    /// Whether at least `count` more bytes are there. Reads them ahead.
    bool holds(qint64 count) const;

    /// For the body: all that is read ahead when that is at least `count` bytes, after reading more if it
    /// was not; else nothing. Good until the next call.
    QByteArrayView lookAhead(qsizetype count) const;
    /// Hands out the first `count` of the bytes last seen ahead.
    void drop(qsizetype count);

    bool isSequential() const override { return true; }
    bool atEnd() const override;

protected:
    qint64 readData(char* target, qint64 maxSize) override;
    qint64 writeData(char const* data, qint64 size) override;

private:
    qsizetype available() const { return ahead.size() - next; }
    bool fill() const;
    void detectEncoding();
    qint64 readLinePiece(char* target, qint64 maxSize);
    qint64 readBody(char* target, qint64 maxSize);
    qsizetype linePieceLength(qsizetype maxSize) const;
    qsizetype asciiEnd(qsizetype maxSize) const;
    bool isLineFeed(char const* unit) const;
    qint64 handOut(char* target, qsizetype size);

    QIODevice& device;
    bool ready;
    bool textMode;
    bool inBody = false;
    bool endlessLine = false;
    // One code unit of the header's encoding: 1 byte, or 2 or 4 behind a byte-order mark that says so.
    int unitBytes = 0;
    bool bigEndian = false;
    qint64 lineBytes = 0;
    qint64 handedOut = 0;

    // Looking for the end is not a change that anyone can see.
    mutable QByteArray ahead;
    mutable qsizetype next = 0;
    mutable bool ended = false;
};
