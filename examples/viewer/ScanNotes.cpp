#include "ScanNotes.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

QString noteOf(QString const& name, QString const& value)
{
    if (name == u"imported")
        return name + (value == u"1" ? u": yes"_s : u": no"_s);
    return name + u": "_s + value;
}

// framework/ScanMetadata.h has the table of these places.
QStringList notesOfStl(QByteArray const& header)
{
    struct Field
    {
        QLatin1StringView name;
        int offset;
        int bytes;
    };
    constexpr Field fields[] = {{"scanner name"_L1, 2, 20},
                                {"scanner serial"_L1, 22, 24},
                                {"imported"_L1, 46, 1},
                                {"software version"_L1, 47, 20},
                                {"acquisition date"_L1, 67, 10}};
    QStringList notes;
    for (Field const& field : fields) {
        QString const value = QString::fromUtf8(header.mid(field.offset, field.bytes)).trimmed();
        if (!value.isEmpty())
            notes << noteOf(field.name, value);
    }
    return notes;
}

QStringList notesOfPly(QFile& file)
{
    constexpr int mostLines = 200;
    constexpr qint64 longestLine = 1024;
    QStringList notes;
    for (int line = 0; line < mostLines && !file.atEnd(); ++line) {
        QByteArray const text = file.readLine(longestLine).trimmed();
        if (text == "end_header")
            break;
        if (!text.startsWith("comment "))
            continue;
        QString const comment = QString::fromUtf8(text.mid(8));
        qsizetype const colon = comment.indexOf(u": "_s);
        notes << (colon < 0 ? comment : noteOf(comment.left(colon), comment.mid(colon + 2)));
    }
    return notes;
}

} // namespace

QStringList notesOfScanner(QString const& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    constexpr qint64 stlHeader = 80;
    QByteArray const start = file.peek(stlHeader);
    if (start.startsWith("\xBE\xBE"))
        return notesOfStl(start);
    return start.startsWith("ply") ? notesOfPly(file) : QStringList();
}
