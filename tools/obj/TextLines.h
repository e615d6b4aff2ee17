#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

class QIODevice;

namespace tool::obj {

/// The lines of an OBJ or MTL file, one after the other, as the library cuts them: without white space around
/// them, at spaces only. They stay bytes: most of them are numbers.
class TextLines
{
public:
    using Tokens = std::vector<QByteArrayView>;

    /// `device` is open, and stays the caller's.
    explicit TextLines(QIODevice& device);

    /// Goes to the next line that is neither empty nor a comment. False at the end.
    bool next();
    /// Of the line, from 1.
    qint64 number() const { return lineNumber; }
    QByteArrayView bytes() const { return line; }
    /// The first line up to here that is a comment with a carriage return in it; 0 without one.
    qint64 commentWithReturn() const { return firstReturn; }
    /// At least one. Valid until the next line.
    Tokens const& tokens() const { return lineTokens; }
    /// The tokens as text: UTF-8, or Latin-1 where the line is not valid UTF-8.
    QStringList words() const;

private:
    void split();

    QIODevice& device;
    QByteArray raw;
    QByteArrayView line;
    Tokens lineTokens;
    qint64 lineNumber = 0;
    qint64 firstReturn = 0;
};

/// A token as text, by the same rule.
QString decoded(QByteArrayView bytes);

/// The words behind the first, with single spaces between, as the library makes names of them.
QString restOf(QStringList const& words);

} // namespace tool::obj
