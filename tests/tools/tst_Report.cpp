#include "Report.h"

#include <QTest>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;
using tool::Report;
using tool::Table;
using tool::Value;

class tst_Report : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void value_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("json");
        auto const row = [](char const* name, Value const& value, char const* text, char const* json) {
            QTest::newRow(name) << QString::fromUtf8(text) << QString::fromUtf8(json);
            values[name] = value;
        };
        row("nothing", Value(), "-", "null");
        row("true", true, "yes", "true");
        row("false", false, "no", "false");
        row("int", -7, "-7", "-7");
        row("large int", qint64(9007199254740993), "9007199254740993", "9007199254740993");
        row("float is the shortest that reads back", 0.1f, "0.100", "0.1");
        row("double", 1.0 / 3.0, "0.333", "0.3333333333333333");
        row("minus zero", -0.0, "0.000", "-0");
        row("rounds to minus zero", -0.0004f, "-0.0004", "-4e-04");
        row("small", 1.5e-7, "1.5e-07", "1.5e-07");
        row("large", 2.5e12, "2.5e+12", "2.5e+12");
        row("NaN", std::nan(""), "nan", "null");
        row("infinity", -std::numeric_limits<float>::infinity(), "-inf", "null");
        row("text", u"Zähne"_s, "Zähne", "\"Zähne\"");
        row("escapes", u"a\"b\\c\n\r\t\x01"_s, "a\"b\\c\n\r\t\x01", "\"a\\\"b\\\\c\\n\\r\\t\\u0001\"");
        row("beyond the basic plane", u"\U0001F9B7"_s, "\U0001F9B7", "\"\\ud83e\\uddb7\"");
        row("vector", QVector3D(1, -2.5f, 0), "1.000 -2.500 0.000", "[1, -2.5, 0]");
        row("array", Value::array({qint64(1), u"x"_s}), "1 x", "[1, \"x\"]");
        row("empty array", Value::array({}), "", "[]");
    }

    void value()
    {
        QFETCH(QString, text);
        QFETCH(QString, json);
        Value const& value = values.at(QTest::currentDataTag());
        QCOMPARE(value.text(), text);
        QCOMPARE(value.json(), json);
    }

    void textIsAligned()
    {
        QCOMPARE(sample().text(), u"name        a\n"
                                  "long label  2\n"
                                  "box\n"
                                  "  min  1.000 2.000 3.000\n"
                                  "rows\n"
                                  "   id  what\n"
                                  "    1  one\n"
                                  "  200  x\n"
                                  "item 1\n"
                                  "  n  1\n"
                                  "item 2\n"
                                  "  n  2\n"_s);
    }

    void jsonKeepsTheOrderOfAdding()
    {
        QCOMPARE(sample().json("test/1"_L1), u"{\n"
                                             "  \"schema\": \"test/1\",\n"
                                             "  \"name\": \"a\",\n"
                                             "  \"long\": 2,\n"
                                             "  \"silent\": true,\n"
                                             "  \"box\": {\n"
                                             "    \"min\": [1, 2, 3]\n"
                                             "  },\n"
                                             "  \"rows\": [\n"
                                             "    {\"id\": 1, \"what\": \"one\"},\n"
                                             "    {\"id\": 200, \"what\": \"x\"}\n"
                                             "  ],\n"
                                             "  \"items\": [\n"
                                             "    {\n"
                                             "      \"n\": 1\n"
                                             "    },\n"
                                             "    {\n"
                                             "      \"n\": 2\n"
                                             "    }\n"
                                             "  ],\n"
                                             "  \"none\": []\n"
                                             "}\n"_s);
    }

    void emptyReport()
    {
        QCOMPARE(Report().text(), QString());
        QCOMPARE(Report().json({}), u"{}\n"_s);
    }

    void controlCharactersStayOutOfTheText()
    {
        Report report;
        report.add("name"_L1, u"name"_s, u"a\x1b[31mb"_s);
        QCOMPARE(report.text(), u"name  a\uFFFD[31mb\n"_s);
    }

private:
    static Report sample()
    {
        Report report;
        report.add("name"_L1, u"name"_s, u"a"_s);
        report.add("long"_L1, u"long label"_s, 2);
        report.add("silent"_L1, {}, true);
        report.section("box"_L1, u"box"_s).add("min"_L1, u"min"_s, QVector3D(1, 2, 3));
        report.add("rows"_L1, u"rows"_s,
                   Table{{{"id"_L1, u"id"_s}, {"what"_L1, u"what"_s}}, {{1, u"one"_s}, {200, u"x"_s}}});
        report.addItem("items"_L1, u"item 1"_s).add("n"_L1, u"n"_s, 1);
        report.addItem("items"_L1, u"item 2"_s).add("n"_L1, u"n"_s, 2);
        report.addList("none"_L1);
        return report;
    }

    static inline std::map<std::string, Value> values;
};

QTEST_APPLESS_MAIN(tst_Report)
#include "tst_Report.moc"
