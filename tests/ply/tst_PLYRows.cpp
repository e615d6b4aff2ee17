#include "ply/PLYRows.h"

#include <QTest>

using Properties = QList<PLYHeader::TypedProperty>;

namespace {

Properties const position = {{ply::X, ply::Float32}, {ply::Y, ply::Float32}, {ply::Z, ply::Float32}};
Properties const normal = {{ply::Nx, ply::Float32}, {ply::Ny, ply::Float64}, {ply::Nz, ply::Int16}};
Properties const color = {{ply::Red, ply::UInt8}, {ply::Green, ply::UInt8}, {ply::Blue, ply::UInt8}};
Properties const uv = {{ply::TextureU, ply::Float32}, {ply::TextureV, ply::Float32}};
Properties const list = {{ply::VertexIndices, ply::List}};

PLYHeader headerOf(ply::Type indices, ply::Type count)
{
    PLYHeader header;
    header.setVertexIndicesTypes(indices, count);
    return header;
}

Properties manyOf(PLYHeader::TypedProperty const& property, int count)
{
    return Properties(count, property);
}

} // namespace

/// Which layouts are decoded as rows, and where their values lie. What comes out is compared with the plain
/// path in tst_PLYReaderRows.
class tst_PLYRows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void vertices_data();
    void vertices();
    void faces_data();
    void faces();
    void columns();
    void listOffsets();
};

void tst_PLYRows::vertices_data()
{
    QTest::addColumn<Properties>("properties");
    QTest::addColumn<qint64>("bytes"); // 0: value by value

    QTest::newRow("positions") << position << qint64(12);
    QTest::newRow("with normals of several types") << position + normal << qint64(26);
    QTest::newRow("with colors") << position + color << qint64(15);
    QTest::newRow("with coordinates") << position + uv << qint64(20);
    QTest::newRow("with something to skip")
        << position + Properties{{ply::Unknown, ply::Float64}} << qint64(20);
    QTest::newRow("with something that takes no bytes")
        << position + Properties{{ply::Unknown, ply::UInt16}} << qint64(12);
    QTest::newRow("with something of no type")
        << position + Properties{{ply::Unknown, ply::Type(-1)}} << qint64(12);
    QTest::newRow("twice") << position + position << qint64(24);
    QTest::newRow("longest") << manyOf({ply::Unknown, ply::Float64}, 512) << ply::longestRow;

    QTest::newRow("too long") << manyOf({ply::Unknown, ply::Float64}, 513) << qint64(0);
    QTest::newRow("nothing") << Properties{} << qint64(0);
    QTest::newRow("no bytes") << manyOf({ply::Unknown, ply::Int8}, 3) << qint64(0);
    QTest::newRow("x without bytes") << Properties{{ply::X, ply::Int8}} + position << qint64(0);
    QTest::newRow("v as a list") << position + Properties{{ply::TextureV, ply::List}} << qint64(0);
    QTest::newRow("nx of no type") << position + Properties{{ply::Nx, ply::Type(-1)}} << qint64(0);
    QTest::newRow("red as a short") << position + Properties{{ply::Red, ply::Int16}} << qint64(0);
    QTest::newRow("alpha as a float") << position + Properties{{ply::Alpha, ply::Float32}} << qint64(0);
}

void tst_PLYRows::vertices()
{
    QFETCH(Properties, properties);
    QFETCH(qint64, bytes);
    auto const row = ply::vertexRowOf(properties);
    QCOMPARE(row ? row->bytes : 0, bytes);
}

void tst_PLYRows::faces_data()
{
    QTest::addColumn<Properties>("properties");
    QTest::addColumn<ply::Type>("count");
    QTest::addColumn<ply::Type>("indices");
    QTest::addColumn<qint64>("bytes");

    QTest::newRow("usual") << list << ply::UInt8 << ply::Int32 << qint64(13);
    QTest::newRow("unsigned") << list << ply::Int32 << ply::UInt32 << qint64(16);
    QTest::newRow("small") << list << ply::Int16 << ply::UInt8 << qint64(5);
    QTest::newRow("colors") << color + list << ply::UInt8 << ply::Int16 << qint64(10);
    QTest::newRow("something to skip")
        << list + Properties{{ply::Unknown, ply::Float64}} << ply::UInt8 << ply::Int32 << qint64(21);

    QTest::newRow("no list") << color << ply::UInt8 << ply::Int32 << qint64(0);
    QTest::newRow("two lists") << list + list << ply::UInt8 << ply::Int32 << qint64(0);
    QTest::newRow("count that takes no bytes") << list << ply::Int8 << ply::Int32 << qint64(0);
    QTest::newRow("indices that take no bytes") << list << ply::UInt8 << ply::UInt16 << qint64(0);
    QTest::newRow("count as a float") << list << ply::Float32 << ply::Int32 << qint64(0);
    QTest::newRow("indices as doubles") << list << ply::UInt8 << ply::Float64 << qint64(0);
    QTest::newRow("lists of lists") << list << ply::UInt8 << ply::List << qint64(0);
    QTest::newRow("green as an int") << list + Properties{{ply::Green, ply::Int32}} << ply::UInt8
                                     << ply::Int32 << qint64(0);
    QTest::newRow("too long") << list + manyOf({ply::Unknown, ply::Float64}, 511) << ply::UInt8 << ply::Int32
                              << qint64(0);
}

void tst_PLYRows::faces()
{
    QFETCH(Properties, properties);
    QFETCH(ply::Type, count);
    QFETCH(ply::Type, indices);
    QFETCH(qint64, bytes);
    auto const row = ply::faceRowOf(properties, headerOf(indices, count));
    QCOMPARE(row ? row->bytes : 0, bytes);
}

// A later property of the same meaning wins.
void tst_PLYRows::columns()
{
    auto const row = ply::vertexRowOf(color + position + Properties{{ply::X, ply::Float64}} + uv);
    QVERIFY(row);
    QCOMPARE(row->color[2].offset, 2);
    QCOMPARE(row->position[0].offset, 15);
    QCOMPARE(row->position[0].type, ply::Float64);
    QCOMPARE(row->position[1].offset, 7);
    QCOMPARE(row->uv[1].offset, 27);
    QVERIFY(!row->color[3].isSet());
    QVERIFY(row->hasColor && row->hasTextureCoordinate && !row->hasNormal);
}

void tst_PLYRows::listOffsets()
{
    auto const row = ply::faceRowOf(Properties{{ply::Unknown, ply::Float32}} + list + color,
                                    headerOf(ply::Int16, ply::Int32));
    QVERIFY(row);
    QCOMPARE(row->count.offset, 4);
    QCOMPARE(row->indices.offset, 8);
    QCOMPARE(row->indexBytes, 2);
    QCOMPARE(row->color[0].offset, 14);
    QVERIFY(row->hasColor);
}

QTEST_GUILESS_MAIN(tst_PLYRows)
#include "tst_PLYRows.moc"
