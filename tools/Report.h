#pragma once

#include <QLatin1StringView>
#include <QString>
#include <QVector3D>

#include <list>
#include <variant>
#include <vector>

namespace tool {

/// A number, a text, a truth, nothing at all, or a row of them. Numbers are printed without any locale.
class Value
{
public:
    using Scalar = std::variant<std::monostate, bool, qint64, float, double, QString>;

    /// Nothing: "-" as text, null in JSON.
    Value() = default;
    Value(bool value);
    Value(int value);
    Value(qint64 value);
    Value(float value);
    Value(double value);
    Value(QString value);
    Value(QLatin1StringView value);
    /// An array of three numbers.
    Value(QVector3D const& value);

    /// An array, of any length.
    static Value array(std::vector<Scalar> values);

    /// For reading: fractions with three decimals, arrays with spaces between.
    QString text() const;
    /// For programs: the shortest number that reads back as the same, null for NaN and infinity.
    QString json() const;
    /// Whether text() is a number, which tables align to the right.
    bool isNumber() const;

private:
    std::vector<Scalar> scalars = {Scalar()};
    bool isArray = false;
};

/// Rows of values under named columns.
struct Table
{
    struct Column
    {
        /// Its name in JSON.
        QLatin1StringView key;
        /// Its heading in text.
        QString label;
    };

    std::vector<Column> columns;
    std::vector<std::vector<Value>> rows;
};

/// A tree of labelled values that is filled once and then printed as aligned text or as JSON. Keys are for
/// programs and never change; labels are for people. An entry without a label is left out of the text.
/// References that `section` and `addItem` return stay valid while the report lives.
class Report
{
public:
    Report& add(QLatin1StringView key, QString const& label, Value value);
    void add(QLatin1StringView key, QString const& label, Table table);
    /// A report within this one: an indented block in text, an object in JSON.
    Report& section(QLatin1StringView key, QString const& label);
    /// The next report of a list, which is started when there is none of this key: an array in JSON.
    Report& addItem(QLatin1StringView key, QString const& label);
    /// An empty list, where there may be no item.
    void addList(QLatin1StringView key);

    bool isEmpty() const { return entries.empty(); }
    /// Lines, each ended by a line feed, indented by `indent` spaces.
    QString text(int indent = 0) const;
    /// An object, the first member "schema" when `schema` is not empty, two spaces for each level.
    QString json(QLatin1StringView schema) const;

private:
    struct Item;
    struct Section
    {
        std::list<Item> items;
        bool isList;
    };
    struct Entry;

    Entry* find(QLatin1StringView key);
    qsizetype labelWidth() const;
    QString objectJson(QLatin1StringView schema, int indent) const;
    static QString entryJson(Entry const& entry, int indent);
    static QString sectionJson(Section const& section, int indent);
    static QString sectionText(Section const& section, int indent);

    std::list<Entry> entries;
};

struct Report::Item
{
    QString label;
    Report report;
};

struct Report::Entry
{
    QLatin1StringView key;
    QString label;
    std::variant<Value, Table, Section> content;
};

} // namespace tool
