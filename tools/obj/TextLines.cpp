#include "obj/TextLines.h"

#include <QIODevice>
#include <QStringList>

namespace tool::obj {

TextLines::TextLines(QIODevice& device_)
    : device(device_)
{}

bool TextLines::next()
{
    while (!device.atEnd()) {
        raw = device.readLine();
        if (raw.isEmpty())
            return false;
        ++lineNumber;
        line = QByteArrayView(raw).trimmed();
        bool const isComment = !line.isEmpty() && line.front() == '#';
        if (isComment && firstReturn == 0 && line.contains('\r'))
            firstReturn = lineNumber;
        if (isComment || line.isEmpty())
            continue;
        split();
        return true;
    }
    return false;
}

void TextLines::split()
{
    lineTokens.clear();
    for (qsizetype begin = 0; begin < line.size();) {
        qsizetype end = begin;
        while (end < line.size() && line[end] != ' ')
            ++end;
        if (end > begin)
            lineTokens.push_back(line.sliced(begin, end - begin));
        begin = end + 1;
    }
}

QStringList TextLines::words() const
{
    return decoded(line).split(u' ', Qt::SkipEmptyParts);
}

QString decoded(QByteArrayView bytes)
{
    return bytes.isValidUtf8() ? QString::fromUtf8(bytes) : QString::fromLatin1(bytes);
}

QString restOf(QStringList const& words)
{
    return words.mid(1).join(u' ');
}

} // namespace tool::obj
