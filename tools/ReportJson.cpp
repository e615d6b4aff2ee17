#include "Report.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

constexpr int indentStep = 2;

QString joined(QStringList const& members, QChar open, QChar close, int indent)
{
    if (members.isEmpty())
        return QString(open) + close;
    QString const margin = u'\n' + QString(indent + indentStep, u' ');
    return open + margin + members.join(u',' + margin) + u'\n' + QString(indent, u' ') + close;
}

QString member(QLatin1StringView key, QString const& value)
{
    return u"\"%1\": "_s.arg(key) + value;
}

QString tableJson(Table const& table, int indent)
{
    QStringList rows;
    for (std::vector<Value> const& row : table.rows) {
        QStringList members;
        for (std::size_t column = 0; column < table.columns.size(); ++column)
            members << member(table.columns[column].key, row[column].json());
        rows << u'{' + members.join(", "_L1) + u'}';
    }
    return joined(rows, u'[', u']', indent);
}

} // namespace

QString Report::sectionJson(Section const& section, int indent)
{
    if (!section.isList)
        return section.items.front().report.objectJson({}, indent);
    QStringList items;
    for (Item const& item : section.items)
        items << item.report.objectJson({}, indent + indentStep);
    return joined(items, u'[', u']', indent);
}

QString Report::entryJson(Entry const& entry, int indent)
{
    if (auto const* value = std::get_if<Value>(&entry.content))
        return member(entry.key, value->json());
    if (auto const* table = std::get_if<Table>(&entry.content))
        return member(entry.key, tableJson(*table, indent));
    return member(entry.key, sectionJson(std::get<Section>(entry.content), indent));
}

QString Report::objectJson(QLatin1StringView schema, int indent) const
{
    QStringList members;
    if (!schema.isEmpty())
        members << member("schema"_L1, u'"' + schema + u'"');
    for (Entry const& entry : entries)
        members << entryJson(entry, indent + indentStep);
    return joined(members, u'{', u'}', indent);
}

QString Report::json(QLatin1StringView schema) const
{
    return objectJson(schema, 0) + u'\n';
}

} // namespace tool
