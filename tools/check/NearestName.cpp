#include "check/NearestName.h"

#include "Text.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>

#include <algorithm>
#include <numeric>
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

/// Keeps the name that is nearest to the one asked for.
class Search
{
public:
    explicit Search(QString const& wanted_)
        : wanted(wanted_.toLower())
        , best(std::max<qsizetype>(2, wanted_.size() / 3) + 1)
    {}

    void lookInto(QString const& folder)
    {
        QDirIterator files(folder, QDir::Files);
        for (int i = 0; i < mostNames && files.hasNext(); ++i) {
            files.next();
            consider(files.fileName());
        }
    }

    QString const& name() const { return nearest; }

private:
    void consider(QString const& candidate)
    {
        // No name is nearer than its length allows.
        if (std::abs(candidate.size() - wanted.size()) >= best + 1)
            return;
        qsizetype const distance = distanceBetween(wanted, candidate.toLower());
        bool const isNearer =
            distance < best || (distance == best && !nearest.isEmpty() && candidate < nearest);
        if (!isNearer)
            return;
        best = distance;
        nearest = candidate;
    }

    QString wanted;
    qsizetype best;
    QString nearest;
};

} // namespace

QString nearestName(QString const& path, QString const& otherFolder)
{
    constexpr qsizetype longestName = 255;
    QString const wanted = lastPart(path);
    if (wanted.isEmpty() || wanted.size() > longestName || path.contains(QChar(u'\0')))
        return {};
    Search search(wanted);
    search.lookInto(QFileInfo(path).path());
    search.lookInto(otherFolder);
    return search.name();
}

QString nearestNameQuestion(QString const& path, QString const& otherFolder)
{
    QString const name = nearestName(path, otherFolder);
    return name.isEmpty() ? QString() : Text::tr("; is it \"%1\"?").arg(name);
}

} // namespace tool
