#include "convert/Plan.h"

#include "Text.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

// The same for all ways to name a file, as far as its folder exists.
QString identityOf(QString const& path)
{
    QFileInfo const file(path);
    QString const folder = QFileInfo(file.absolutePath()).canonicalFilePath();
    return QDir::cleanPath((folder.isEmpty() ? file.absolutePath() : folder) + u'/' + file.fileName());
}

} // namespace

QString targetPath(PlannedInput const& input, PlannedTarget const& target)
{
    QFileInfo const file(input.path);
    QString const name = file.completeBaseName() + u'.' + target.suffix;
    QString const folder =
        target.directory.isEmpty() ? file.path() : target.directory + u'/' + input.subfolder;
    QString const path = QDir::cleanPath(folder + u'/' + name);
    bool const isHere = target.directory.isEmpty() && !input.path.contains(u'/');
    return isHere ? name : path;
}

QStringList collisionsOf(std::vector<Conversion> const& conversions)
{
    QStringList sentences;
    QHash<QString, QString> inputs;
    for (Conversion const& conversion : conversions)
        inputs.insert(identityOf(conversion.in), conversion.in);
    QHash<QString, QString> targets;
    for (Conversion const& conversion : conversions) {
        if (!conversion.obstacle.isEmpty())
            continue;
        QString const target = identityOf(conversion.out);
        if (QString const other = targets.value(target); !other.isEmpty())
            sentences << Text::tr("%1 and %2 would both become %3").arg(other, conversion.in, conversion.out);
        else if (inputs.contains(target) && target != identityOf(conversion.in))
            sentences << Text::tr("%1 would become %2, which is to be converted itself")
                             .arg(conversion.in, conversion.out);
        targets.insert(target, conversion.in);
    }
    return sentences;
}

} // namespace tool
