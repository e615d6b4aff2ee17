#pragma once

#include <QByteArrayView>
#include <QString>

#include <optional>

namespace tool::volume {

/// The words of a text, which white space separates, and the lines that they stand in.
class Words
{
public:
    /// Looks at `text` as long as it lives.
    explicit Words(QByteArrayView text);

    /// Goes to the next word. False, with an empty word, behind the last.
    bool next();
    /// The same within the line. False, with an empty word, at its end, which is not passed.
    bool nextInLine();
    /// Goes to the begin of the next line. False behind the last.
    bool nextLine();
    /// Goes to the end of the next line without a word in it, or behind the last line.
    void skipParagraph();

    QByteArrayView word() const { return found; }
    /// The line that was come to, counted from 1.
    qint64 line() const { return number; }
    bool atEnd() const { return at == text.size(); }

    /// That `what` was expected in the line and what was found, the word or the whole line, or that the text
    /// ends there.
    QString expected(QString const& what) const;
    QString expectedLine(QString const& what) const;

private:
    QString expected(QString const& what, QByteArrayView instead) const;
    bool skipBlanks();
    void passLineEnd();
    bool takeWord();
    QByteArrayView wholeLine() const;

    QByteArrayView text;
    QByteArrayView found;
    qsizetype at = 0;
    qsizetype lineStart = 0;
    qint64 number = 1;
};

/// A decimal number as programs write it, the whole of `word`; nothing else, no sign in front but a minus.
std::optional<qint64> integerIn(QByteArrayView word);
/// Rounded to single precision. Nothing for NaN, infinity, and what is too large.
std::optional<float> coordinateIn(QByteArrayView word);

} // namespace tool::volume
