#pragma once

#include <QAnyStringView>
#include <QByteArray>
#include <QString>

#include <limits>
#include <vector>

class QIODevice;
class QTextStream;

/// The lines of an OBJ or MTL file, one after the other, cut into tokens.
///
/// Lines come as raw bytes straight from the device under a text stream. Each line chooses its own encoding:
/// UTF-8, or Latin-1 where it is not valid UTF-8, as exporters write object and file names in either.
///
/// A random-access device is read ahead in blocks; the destructor puts it back behind the last line that was
/// handed out. A sequential device is read line by line and never ahead.
class OBJLineReader
{
public:
    using Tokens = std::vector<QAnyStringView>;

    /// The stream and its device stay the caller's; nothing may have been read through the stream itself.
    explicit OBJLineReader(QTextStream& stream);
    ~OBJLineReader();
    Q_DISABLE_COPY_MOVE(OBJLineReader)

    /// Whether the stream has nothing after the line that was read last.
    bool atEnd() const;
    /// Reads the next line. False when the device gives nothing though it does not claim to be at its end.
    bool readLine();
    /// The bytes of the line without ASCII white space around them. Like the tokens valid until the next line
    /// is read.
    QByteArrayView getBytes() const { return line; }
    /// What stands between the spaces of the line (U+0020 only), empty parts left out; of many, the first
    /// `mostTokens`. No tokens for an empty line or a comment.
    Tokens const& splitLine(std::size_t mostTokens = std::numeric_limits<std::size_t>::max());

private:
    QByteArrayView nextRawLine();
    bool readAhead();
    bool splitAscii(std::size_t mostTokens);
    void split(QStringView text, std::size_t mostTokens);

    QTextStream& stream;
    QIODevice& device;
    bool const isSequential;
    QByteArray block; // what was read ahead lies in [begin, end)
    qsizetype begin = 0;
    qsizetype end = 0;
    QByteArray sequentialLine;
    QByteArrayView raw;
    QByteArrayView line;
    QString decodedLine; // what the tokens of a line that is not ASCII look at
    Tokens tokens;
};
