#include "support/PrivateAccess.h"
#include "support/VolumeMeshes.h"
#include "vmesh/MTModelBoundaryConditionsParser.h"

#include <QBuffer>
#include <QTest>

#include <random>

namespace support {

using Walk = bool (MTModelBoundaryConditionsParser::*)(QIODevice&, qint64&);

struct ReadText
{
    using Member = Walk;
    friend Member privateMember(ReadText);
};
template struct PrivateMember<ReadText, &MTModelBoundaryConditionsParser::readText>;

struct ReadBytes
{
    using Member = Walk;
    friend Member privateMember(ReadBytes);
};
template struct PrivateMember<ReadBytes, &MTModelBoundaryConditionsParser::readBytes>;

} // namespace support

namespace {

struct Outcome
{
    bool success = false;
    qint64 line = 0;
    qint32 count = -2;
    QList<qint32> points;
    QByteArray values;
};

Outcome outcomeOf(QByteArray text, support::Walk walk)
{
    MTModelBoundaryConditionsParser parser{QString()};
    QBuffer buffer(&text);
    buffer.open(QIODevice::ReadOnly);
    Outcome outcome;
    outcome.success = (parser.*walk)(buffer, outcome.line);
    MTModelBoundaryConditions const conditions = parser.getBoundaryConditions();
    outcome.count = conditions.numBoundaryConditions;
    if (!outcome.success || outcome.count < 0)
        return outcome;
    outcome.points = support::valuesOf(conditions.pointIndices, outcome.count);
    QList<float> const values = support::valuesOf(conditions.values, 3 * qint64(outcome.count));
    outcome.values = QByteArray(reinterpret_cast<char const*>(values.constData()), 4 * values.size());
    return outcome;
}

void compare(QByteArray const& text)
{
    Outcome const bytes = outcomeOf(text, privateMember(support::ReadBytes()));
    Outcome const decoded = outcomeOf(text, privateMember(support::ReadText()));
    if (bytes.success != decoded.success || bytes.line != decoded.line || bytes.count != decoded.count ||
        bytes.points != decoded.points || bytes.values != decoded.values)
        QFAIL(text.toPercentEncoding(" \n").constData());
}

QByteArray textOf(std::mt19937& random)
{
    auto const below = [&](int limit) { return static_cast<int>(random() % static_cast<quint32>(limit)); };
    auto const of = [&](QByteArrayList const& choices) {
        return choices[below(static_cast<int>(choices.size()))];
    };
    int const count = below(6);
    QByteArray text =
        "FemBoundaryConditions\n{\nDefaultMeshFilename\n" + QByteArray::number(count + below(8) / 7) + '\n';
    for (int i = 0; i < count; ++i) {
        text +=
            below(20) ? QByteArray::number(below(100000) - 10) : of({"+1", "1.0", "99999999999", " 1", ""});
        for (int k = 0; k < 3; ++k)
            text +=
                ' ' + (below(20) ? QByteArray::number((below(20001) - 10000) / 77.0, 'g', 6)
                                 : of({"nan", "1e-50", "1e50", "", "\t1", "1\t", "1,5", "\xC3\xA4", "2 "}));
        text += below(10) ? "\n" : of({"\r\n", " \n", "\r\r\n", ""});
    }
    return below(3) ? text + '}' : text;
}

} // namespace

/// Files that are read as bytes give what they give when they are decoded.
class tst_MTModelBoundaryConditionsParserWalks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void generated();
    void everyLength();
    void manyRows();
};

void tst_MTModelBoundaryConditionsParserWalks::generated()
{
    std::mt19937 random(1);
    for (int i = 0; i < 20000 && !QTest::currentTestFailed(); ++i) {
        QByteArray text = textOf(random);
        compare(text);
        text[static_cast<qsizetype>(random() % static_cast<quint32>(text.size()))] =
            static_cast<char>(random());
        compare(text);
    }
}

void tst_MTModelBoundaryConditionsParserWalks::everyLength()
{
    std::mt19937 random(2);
    for (int i = 0; i < 50; ++i) {
        QByteArray const text = textOf(random);
        for (qsizetype length = 0; length < text.size(); ++length)
            compare(text.left(length));
    }
}

void tst_MTModelBoundaryConditionsParserWalks::manyRows()
{
    QByteArray text = "a\nb\nc\n40000\n";
    for (int i = 0; i < 40000; ++i)
        text += QByteArray::number(i) + " 0.5 -1e-07 " + QByteArray::number(i) + '\n';
    compare(text);
    compare(text.chopped(7));
    for (qsizetype const length : {4194302, 4194303, 4194304, 5000000})
        for (qsizetype const place : {0, 4, 11, 12, 18})
            compare(QByteArray(text).insert(place, QByteArray(length, ' ')));
    compare(QByteArray(text).insert(500000, "\xC3\xA4"));
}

QTEST_GUILESS_MAIN(tst_MTModelBoundaryConditionsParserWalks)
#include "tst_MTModelBoundaryConditionsParserWalks.moc"
