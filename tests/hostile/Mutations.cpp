#include "hostile/Mutations.h"

#include <QRegularExpression>
#include <QtEndian>

#include <array>

namespace hostile::mutations {

namespace {

QByteArray label(char const* what, qsizetype where)
{
    return QByteArray(what) + ' ' + QByteArray::number(where);
}

template <typename Word>
void countsAt(QByteArray const& seed, qsizetype offset, Visitor const& visit)
{
    if (offset + qsizetype(sizeof(Word)) > seed.size())
        return;
    auto const largest = static_cast<Word>(Word(-1) >> 1);
    for (bool const isBigEndian : {false, true}) {
        char const* const at = seed.constData() + offset;
        Word const now = isBigEndian ? qFromBigEndian<Word>(at) : qFromLittleEndian<Word>(at);
        for (Word const value :
             {Word(0), Word(1), Word(-1), largest, Word(largest + 1), Word(now + 1), Word(now - 1)}) {
            QByteArray damaged = seed;
            if (isBigEndian)
                qToBigEndian(value, damaged.data() + offset);
            else
                qToLittleEndian(value, damaged.data() + offset);
            visit(damaged, label("count", offset) + " = " + QByteArray::number(value));
        }
    }
}

QByteArray replaced(QByteArrayList lines, qsizetype index, QByteArray const& line)
{
    lines[index] = line;
    return lines.join('\n');
}

QByteArray replacedBy(QByteArrayList lines, qsizetype index, QByteArrayList const& others)
{
    lines.remove(index);
    for (QByteArray const& line : others)
        lines.insert(index, line);
    return lines.join('\n');
}

void damageLine(QByteArrayList const& all, qsizetype i, Visitor const& visit)
{
    QByteArray const line = all[i];
    QByteArray const start = line.first(line.size() / 2);
    QByteArray const rest = line.sliced(line.size() / 2);
    visit(replacedBy(all, i, {}), label("dropped line", i));
    visit(replacedBy(all, i, {line, line}), label("doubled line", i));
    visit(replaced(all, i, {}), label("emptied line", i));
    for (QByteArray const& middle :
         {QByteArray(1, '\0'), QByteArray("\xEF\xBB\xBF"), QByteArray("\xFF\xFE"), QByteArray("caf\xE9"),
          QByteArray("\xC3"), QByteArray("\xF0\x9F\xA6\xB7"), QByteArray("\t"), QByteArray("\r"),
          QByteArray("\f"), QByteArray(" "), QByteArray("-"), QByteArray("9999999999"),
          QByteArray("\"<>&")}) {
        visit(replaced(all, i, middle + line), label("before line", i) + ": " + middle.toHex());
        visit(replaced(all, i, start + middle + rest), label("within line", i) + ": " + middle.toHex());
        visit(replaced(all, i, line + middle), label("behind line", i) + ": " + middle.toHex());
    }
    visit(replaced(all, i, line.toUpper()), label("capitals in line", i));
    visit(replaced(all, i, QByteArray(line).replace(' ', '\t')), label("tabs in line", i));
}

} // namespace

void truncations(QByteArray const& seed, qsizetype stride, Visitor const& visit)
{
    for (qsizetype length = 0; length <= seed.size(); length += stride)
        visit(seed.first(length), label("cut at", length));
}

void bytes(QByteArray const& seed, qsizetype stride, Visitor const& visit)
{
    for (qsizetype offset = 0; offset < seed.size(); offset += stride) {
        auto const now = static_cast<unsigned char>(seed[offset]);
        std::array<unsigned, 10> values = {0x00, 0xFF};
        for (unsigned bit = 0; bit < 8; ++bit)
            values[2 + bit] = now ^ (1u << bit);
        for (unsigned const value : values) {
            QByteArray damaged = seed;
            damaged[offset] = static_cast<char>(value);
            visit(damaged, label("byte", offset) + " = " + QByteArray::number(value));
        }
    }
}

void counts(QByteArray const& seed, qsizetype stride, Visitor const& visit)
{
    for (qsizetype offset = 0; offset < seed.size(); offset += stride) {
        countsAt<quint32>(seed, offset, visit);
        countsAt<quint16>(seed, offset, visit);
    }
}

void numbers(QByteArray const& seed, qsizetype stride, Visitor const& visit)
{
    static QRegularExpression const number(QStringLiteral("-?\\d+"));
    QString const text = QString::fromLatin1(seed);
    qsizetype count = 0;
    for (auto found = number.globalMatch(text); found.hasNext();) {
        QRegularExpressionMatch const match = found.next();
        if (count++ % stride != 0)
            continue;
        qint64 const now = match.captured().toLongLong();
        for (QByteArray const& value :
             {QByteArray("0"), QByteArray("1"), QByteArray("-1"), QByteArray("2147483647"),
              QByteArray("2147483648"), QByteArray("-2147483648"), QByteArray("4294967295"),
              QByteArray("4294967296"), QByteArray("+3"), QByteArray("1e3"), QByteArray("1e999"),
              QByteArray("nan"), QByteArray("inf"), QByteArray("0x10"), QByteArray(), QByteArray(400, '9'),
              QByteArray::number(now + 1), QByteArray::number(now - 1)}) {
            QByteArray damaged = seed;
            damaged.replace(match.capturedStart(), match.capturedLength(), value);
            visit(damaged, label("number", match.capturedStart()) + " = " + value);
        }
    }
}

void lines(QByteArray const& seed, qsizetype stride, Visitor const& visit)
{
    QByteArrayList const all = seed.split('\n');
    for (qsizetype i = 0; i < all.size(); i += stride)
        damageLine(all, i, visit);
    visit(all.join('\r'), "carriage returns");
    visit(all.join("\r\n"), "carriage returns and line feeds");
    visit(all.join("\n\r"), "line feeds and carriage returns");
    visit(all.join("\n\n"), "empty lines");
    visit(all.join(QByteArray("\0\n", 2)), "NUL before each line feed");
}

void longLines(QByteArray const& seed, qsizetype stride, Visitor const& visit)
{
    constexpr qsizetype megabyte = qsizetype(1) << 20;
    QByteArrayList const all = seed.split('\n');
    for (qsizetype i = 0; i < all.size(); i += stride)
        for (char const filling : {' ', 'x', '1', '/', '\0'})
            visit(replaced(all, i, all[i] + ' ' + QByteArray(megabyte, filling)),
                  label("a megabyte behind line", i) + " of " + QByteArray(1, filling).toHex());
}

} // namespace hostile::mutations
