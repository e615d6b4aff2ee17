#include "check/NearestName.h"

#include "Text.h"

#include <QDirIterator>
#include <QFileInfo>
#include <QImageReader>
#include <QRegularExpression>
#include <QSet>
#include <QStringList>

#include <algorithm>
#include <numeric>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

constexpr int mostNames = 10'000;

// Behind the last separator, be it that of another system.
QString lastPart(QString const& path)
{
    return path.section(u'/', -1).section(u'\\', -1);
}

// How many letters have to be put in, taken out or changed to make one of the other.
qsizetype distanceBetween(QString const& a, QString const& b)
{
    std::vector<qsizetype> row(static_cast<std::size_t>(b.size()) + 1);
    std::iota(row.begin(), row.end(), 0);
    for (qsizetype i = 0; i < a.size(); ++i) {
        qsizetype diagonal = row[0]++;
        for (std::size_t k = 1; k < row.size(); ++k) {
            qsizetype const changed = diagonal + (a[i] == b[static_cast<qsizetype>(k) - 1] ? 0 : 1);
            diagonal = row[k];
            row[k] = std::min({changed, row[k] + 1, row[k - 1] + 1});
        }
    }
    return row.back();
}

enum class SuffixKind
{
    Unknown,
    Library,
    Image,
    Other
};

SuffixKind suffixKindOf(QString const& name)
{
    static QSet<QString> const images = [] {
        QSet<QString> suffixes;
        for (QByteArray const& format : QImageReader::supportedImageFormats())
            suffixes << QString::fromLatin1(format).toLower();
        return suffixes + QSet<QString>{u"tif"_s, u"tiff"_s, u"tga"_s, u"webp"_s, u"dds"_s};
    }();
    static QSet<QString> const others = {u"obj"_s, u"ply"_s, u"stl"_s,  u"array"_s, u"xyz"_s,  u"vmesh"_s,
                                         u"off"_s, u"txt"_s, u"html"_s, u"pdf"_s,   u"json"_s, u"zip"_s};
    QString const suffix = QFileInfo(name).suffix().toLower();
    if (suffix == "mtl"_L1)
        return SuffixKind::Library;
    if (images.contains(suffix))
        return SuffixKind::Image;
    return others.contains(suffix) ? SuffixKind::Other : SuffixKind::Unknown;
}

bool fits(QString const& name, NamedKind kind)
{
    switch (suffixKindOf(name)) {
    case SuffixKind::Unknown:
        return true;
    case SuffixKind::Library:
        return kind == NamedKind::Library;
    case SuffixKind::Image:
        return kind == NamedKind::Image;
    default:
        return false;
    }
}

// The numbers in a name, without zeros in front: "scan-007b2" has 7 and 2.
QStringList numbersIn(QString const& name)
{
    static QRegularExpression const pattern(u"0*([0-9]+)"_s);
    QStringList numbers;
    for (QRegularExpressionMatch const& match : pattern.globalMatch(name))
        numbers << match.captured(1);
    return numbers;
}

/// How far a name is from the one asked for; the suffix counts between names whose stems are alike.
struct Distance
{
    qsizetype stem = 0;
    qsizetype suffix = 0;

    friend bool operator<(Distance const& a, Distance const& b)
    {
        return std::pair(a.stem, a.suffix) < std::pair(b.stem, b.suffix);
    }
};

/// Keeps the name that is nearest to the one asked for.
class Search
{
public:
    Search(QString const& wanted_, QString const& scanName_, NamedKind kind_)
        : wanted(wanted_.toLower())
        , wantedStem(stemOf(wanted))
        , wantedNumbers(numbersIn(wantedStem))
        , mostChanges((wantedStem.size() + 1) / lettersOfAChange)
        , scanName(scanName_)
        , kind(kind_)
    {}

    void lookInto(QString const& folder)
    {
        QDirIterator files(folder, QDir::Files);
        for (int i = 0; i < mostNames && files.hasNext(); ++i) {
            files.next();
            if (files.fileName() != scanName && fits(files.fileName(), kind))
                consider(files.fileName());
        }
    }

    QString const& name() const { return nearest; }

private:
    static QString stemOf(QString const& name) { return QFileInfo(name).completeBaseName(); }

    void consider(QString const& candidate)
    {
        QString const lower = candidate.toLower();
        QString const stem = stemOf(lower);
        // No name is nearer than its length allows.
        if (std::abs(stem.size() - wantedStem.size()) > mostChanges)
            return;
        // "scan36" is another thing than "scan37", not a slip of the pen.
        QStringList const numbers = numbersIn(stem);
        if (!numbers.isEmpty() && !wantedNumbers.isEmpty() && numbers != wantedNumbers)
            return;
        Distance const distance = {distanceBetween(wantedStem, stem), distanceBetween(wanted, lower)};
        if (distance.stem > mostChanges)
            return;
        bool const isAsNear = !(best < distance) && !(distance < best);
        if (nearest.isEmpty() || distance < best || (isAsNear && candidate < nearest)) {
            best = distance;
            nearest = candidate;
        }
    }

    static constexpr qsizetype lettersOfAChange = 4;

    QString wanted;
    QString wantedStem;
    QStringList wantedNumbers;
    qsizetype mostChanges;
    QString scanName;
    NamedKind kind;
    Distance best;
    QString nearest;
};

} // namespace

QString nearestName(QString const& path, QString const& scanPath, NamedKind kind)
{
    constexpr qsizetype longestName = 255;
    QString const wanted = lastPart(path);
    if (wanted.isEmpty() || wanted.size() > longestName || path.contains(QChar(u'\0')))
        return {};
    QFileInfo const scan(scanPath);
    Search search(wanted, scan.fileName(), kind);
    search.lookInto(QFileInfo(path).path());
    search.lookInto(scan.path());
    return search.name();
}

QString nearestNameQuestion(QString const& path, QString const& scanPath, NamedKind kind)
{
    QString const name = nearestName(path, scanPath, kind);
    return name.isEmpty() ? QString() : Text::tr("; is it \"%1\"?").arg(name);
}

} // namespace tool
