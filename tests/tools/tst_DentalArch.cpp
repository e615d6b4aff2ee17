#include "StlFiles.h"
#include "sample/DentalArch.h"
#include "sample/TaggedStl.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QSet>
#include <QTest>

#include <bit>
#include <map>

using namespace Qt::StringLiterals;
using sample::DentalArch;
using sample::makeDentalArch;

class tst_DentalArch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void facetCountIsExact_data()
    {
        QTest::addColumn<int>("asked");
        QTest::addColumn<int>("made");
        for (int const count : {500, 501, 777, 1000, 4999, 5000, 20'001, 123'456})
            QTest::addRow("%d", count) << count << count;
        QTest::newRow("too few") << 0 << 500;
        QTest::newRow("negative") << -1 << 500;
    }

    void facetCountIsExact()
    {
        QFETCH(int, asked);
        QFETCH(int, made);
        DentalArch const arch = makeDentalArch({asked, 1});
        QCOMPARE(arch.facets.size(), std::size_t(made));
        QCOMPARE(arch.colors.size(), arch.vertices.size());
        QCOMPARE(arch.textureCoordinates.size(), arch.vertices.size());
        QVERIFY(isSoundSheet(arch));
    }

    void teethAndGumHaveTheirTags()
    {
        std::map<int, int> facets;
        for (DentalArch::Facet const& facet : makeDentalArch({20'000, 1}).facets)
            ++facets[facet.tag];
        QList<int> tags;
        for (auto const& [tag, count] : facets) {
            tags << tag;
            QVERIFY(count > 100);
        }
        QCOMPARE(tags, QList<int>({1, 31, 32, 33, 34, 35, 36, 37, 41, 42, 43, 44, 45, 46, 47}));
    }

    void isTheSameEveryTime()
    {
        QCOMPARE(bytesOf(2000, 5), bytesOf(2000, 5));
        QVERIFY(bytesOf(2000, 5) != bytesOf(2000, 6));
    }

    // The coordinates are real millimetres of a lower jaw, and use all bits of a float.
    void coordinates()
    {
        DentalArch const arch = makeDentalArch({5000, 1});
        QVector3D low = arch.vertices[0];
        QVector3D high = low;
        int fullMantissas = 0;
        for (QVector3D const& vertex : arch.vertices) {
            for (int axis = 0; axis < 3; ++axis) {
                low[axis] = qMin(low[axis], vertex[axis]);
                high[axis] = qMax(high[axis], vertex[axis]);
                fullMantissas += (std::bit_cast<quint32>(vertex[axis]) & 0xFFu) != 0u;
            }
        }
        QVector3D const size = high - low;
        QVERIFY(size.x() > 60 && size.x() < 80);
        QVERIFY(size.y() > 45 && size.y() < 65);
        QVERIFY(size.z() > 15 && size.z() < 22);
        QVERIFY(fullMantissas > 2.9 * double(arch.vertices.size()));
    }

    void stlBytes()
    {
        DentalArch const arch = makeDentalArch({777, 1});
        QBuffer buffer;
        QVERIFY(buffer.open(QIODevice::WriteOnly));
        QVERIFY(sample::writeTaggedStl(buffer, arch, QByteArray(80, 'h')));
        QByteArray const bytes = buffer.data();
        QCOMPARE(bytes.size(), sample::taggedStlBytes(777));
        QCOMPARE(bytes.left(84), QByteArray(80, 'h') + QByteArray("\x09\x03\x00\x00", 4));
        int last = 0;
        for (qsizetype facet = 84; facet < bytes.size(); facet += 50) {
            QCOMPARE(bytes[facet + 48], '\0');
            QVERIFY(bytes[facet + 49] >= last);
            last = bytes[facet + 49];
        }
    }

    void stlToAFullDevice()
    {
        QBuffer closed;
        QTest::ignoreMessage(QtWarningMsg, "QIODevice::write (QBuffer): device not open");
        QVERIFY(!sample::writeTaggedStl(closed, makeDentalArch({500, 1}), QByteArray(80, 'h')));
    }

private:
    static QByteArray bytesOf(int facets, quint64 seed)
    {
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        sample::writeTaggedStl(buffer, makeDentalArch({facets, seed}), QByteArray(80, '\0'));
        return buffer.data();
    }

    // No edge runs the same way twice (so at most two facets share it, wound alike), no facet is degenerate,
    // no two vertices coincide.
    static bool isSoundSheet(DentalArch const& arch)
    {
        QSet<std::pair<int, int>> edges;
        for (DentalArch::Facet const& facet : arch.facets) {
            for (std::size_t i = 0; i < 3; ++i)
                edges.insert({facet.corners[i], facet.corners[(i + 1) % 3]});
        }
        QSet<QByteArray> places;
        for (QVector3D const& vertex : arch.vertices)
            places.insert(QByteArray(reinterpret_cast<char const*>(&vertex), sizeof(vertex)));
        return edges.size() == 3 * qsizetype(arch.facets.size()) && places.size() == arch.vertices.size();
    }
};

QTEST_APPLESS_MAIN(tst_DentalArch)
#include "tst_DentalArch.moc"
