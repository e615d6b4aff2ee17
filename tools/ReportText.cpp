#include "Console.h"
#include "Report.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

constexpr int indentStep = 2;
constexpr qsizetype columnGap = 2;

QString aligned(QString const& text, qsizetype width, bool right)
{
    return right ? text.rightJustified(width) : text.leftJustified(width);
}

QString withoutTrailingSpaces(QString line)
{
    while (line.endsWith(u' '))
        line.chop(1);
    return line + u'\n';
}

struct ColumnLayout
{
    qsizetype width;
    bool right;
};

ColumnLayout layoutOf(Table const& table, std::size_t column)
{
    ColumnLayout layout = {table.columns[column].label.size(), true};
    for (std::vector<Value> const& row : table.rows) {
        layout.width = std::max(layout.width, row[column].text().size());
        layout.right = layout.right && row[column].isNumber();
    }
    return layout;
}

QString tableText(Table const& table, int indent)
{
    std::vector<QString> lines(table.rows.size() + 1, QString(indent, u' '));
    for (std::size_t column = 0; column < table.columns.size(); ++column) {
        ColumnLayout const layout = layoutOf(table, column);
        QString const gap(column == 0 ? 0 : columnGap, u' ');
        lines[0] += gap + aligned(table.columns[column].label, layout.width, layout.right);
        for (std::size_t row = 0; row < table.rows.size(); ++row)
            lines[row + 1] +=
                gap + aligned(printable(table.rows[row][column].text()), layout.width, layout.right);
    }
    QString text;
    for (QString const& line : lines)
        text += withoutTrailingSpaces(line);
    return text;
}

} // namespace

qsizetype Report::labelWidth() const
{
    qsizetype width = 0;
    for (Entry const& entry : entries) {
        if (std::holds_alternative<Value>(entry.content))
            width = std::max(width, entry.label.size());
    }
    return width;
}

QString Report::sectionText(Section const& section, int indent)
{
    QString text;
    for (Item const& item : section.items) {
        QString const block = item.report.text(indent + indentStep);
        if (!item.label.isEmpty() && !block.isEmpty())
            text += QString(indent, u' ') + printable(item.label) + u'\n' + block;
    }
    return text;
}

QString Report::text(int indent) const
{
    qsizetype const width = labelWidth() + columnGap;
    QString const margin(indent, u' ');
    QString text;
    for (Entry const& entry : entries) {
        if (auto const* section = std::get_if<Section>(&entry.content))
            text += sectionText(*section, indent);
        else if (entry.label.isEmpty())
            continue;
        else if (auto const* value = std::get_if<Value>(&entry.content))
            text +=
                withoutTrailingSpaces(margin + entry.label.leftJustified(width) + printable(value->text()));
        else if (auto const* table = std::get_if<Table>(&entry.content))
            text += margin + entry.label + u'\n' + tableText(*table, indent + indentStep);
    }
    return text;
}

} // namespace tool
