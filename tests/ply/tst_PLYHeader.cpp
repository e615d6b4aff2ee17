#include "ply/PLYHeader.h"

#include <QTest>
#include <QtNumeric>

namespace {

auto const notANumber = static_cast<float>(qQNaN());
auto const infinity = static_cast<float>(qInf());

// 4 columns, 2 rows; the pixel at column c and row r is (10 * c, 100 * r, 7).
QImage grid()
{
    QImage image(4, 2, QImage::Format_ARGB32);
    for (int row = 0; row < image.height(); ++row)
        for (int column = 0; column < image.width(); ++column)
            image.setPixelColor(column, row, QColor(10 * column, 100 * row, 7));
    return image;
}

} // namespace

class tst_PLYHeader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsUnset();
    void countsSetTheCurrentElement();
    void storesFormatTypesAndTexture();
    void addsToTheCurrentElement();
    void dropsPropertiesOfOtherElements();
    void warnsOfPropertiesWithoutElement_data();
    void warnsOfPropertiesWithoutElement();
    void setPropertiesReplacesVertexProperties();
    void copiesAndMoves();
    void looksColorsUp_data();
    void looksColorsUp();
    void hasNoColorWithoutTexture();
};

void tst_PLYHeader::startsUnset()
{
    PLYHeader const header;
    QCOMPARE(header.getVerticesCount(), 0);
    QCOMPARE(header.getFacesCount(), 0);
    QCOMPARE(int(header.getFormat()), -1);
    QCOMPARE(int(header.getVertexIndicesType()), -1);
    QCOMPARE(int(header.getVertexIndicesCountType()), -1);
    QCOMPARE(int(header.getCurrentElement()), -1);
    QCOMPARE(header.getVertexPropertiesCount(), 0);
    QCOMPARE(header.getFacePropertiesCount(), 0);
    QCOMPARE(header.getMaterialPropertiesCount(), 0);
    QVERIFY(header.getTexture().isNull());
    QVERIFY(!header.hasTexture());
}

void tst_PLYHeader::countsSetTheCurrentElement()
{
    PLYHeader header;
    header.setVerticesCount(12);
    QCOMPARE(header.getVerticesCount(), 12);
    QCOMPARE(header.getCurrentElement(), ply::Vertex);
    header.setFacesCount(-3);
    QCOMPARE(header.getFacesCount(), -3);
    QCOMPARE(header.getCurrentElement(), ply::Face);
    QCOMPARE(header.getVerticesCount(), 12);
    header.setCurrentElement(ply::Other);
    QCOMPARE(header.getCurrentElement(), ply::Other);
}

void tst_PLYHeader::storesFormatTypesAndTexture()
{
    PLYHeader header;
    header.setFormat(ply::BinaryBigEndian);
    QCOMPARE(header.getFormat(), ply::BinaryBigEndian);
    header.setVertexIndicesTypes(ply::UInt32, ply::UInt8);
    QCOMPARE(header.getVertexIndicesType(), ply::UInt32);
    QCOMPARE(header.getVertexIndicesCountType(), ply::UInt8);
    header.setTexture(grid());
    QVERIFY(header.hasTexture());
    QCOMPARE(header.getTexture(), grid());
    header.setTexture({});
    QVERIFY(!header.hasTexture());
}

void tst_PLYHeader::addsToTheCurrentElement()
{
    PLYHeader header;
    header.setCurrentElement(ply::Vertex);
    header.addProperty(ply::X, ply::Float32);
    header.addProperty(ply::Unknown, ply::Type(-1));
    header.setCurrentElement(ply::Face);
    header.addProperty(ply::VertexIndices, ply::List);
    header.setCurrentElement(ply::Material);
    header.addProperty(ply::DetailNoise, ply::UInt8);

    QCOMPARE(header.getVertexPropertiesCount(), 2);
    QCOMPARE(header.getVertexProperty(0), ply::X);
    QCOMPARE(header.getVertexPropertyType(0), ply::Float32);
    QCOMPARE(header.getVertexProperty(1), ply::Unknown);
    QCOMPARE(int(header.getVertexPropertyType(1)), -1);
    QCOMPARE(header.getFacePropertiesCount(), 1);
    QCOMPARE(header.getFaceProperty(0), ply::VertexIndices);
    QCOMPARE(header.getFacePropertyType(0), ply::List);
    QCOMPARE(header.getMaterialPropertiesCount(), 1);
    QCOMPARE(header.getMaterialProperty(0), ply::DetailNoise);
    QCOMPARE(header.getMaterialPropertyType(0), ply::UInt8);
}

void tst_PLYHeader::dropsPropertiesOfOtherElements()
{
    PLYHeader header;
    header.setCurrentElement(ply::Other);
    header.addProperty(ply::X, ply::Float32);
    QCOMPARE(header.getVertexPropertiesCount(), 0);
    QCOMPARE(header.getFacePropertiesCount(), 0);
    QCOMPARE(header.getMaterialPropertiesCount(), 0);
}

void tst_PLYHeader::warnsOfPropertiesWithoutElement_data()
{
    QTest::addColumn<int>("element");
    QTest::newRow("unset") << -1;
    QTest::newRow("behind the last") << 4;
}

void tst_PLYHeader::warnsOfPropertiesWithoutElement()
{
    QFETCH(int, element);
    PLYHeader header;
    header.setCurrentElement(ply::Element(element));
    QTest::ignoreMessage(QtWarningMsg, "PLYReader: Invalid property");
    header.addProperty(ply::X, ply::Float32);
    QCOMPARE(header.getVertexPropertiesCount(), 0);
    QCOMPARE(header.getFacePropertiesCount(), 0);
    QCOMPARE(header.getMaterialPropertiesCount(), 0);
}

void tst_PLYHeader::setPropertiesReplacesVertexProperties()
{
    PLYHeader header;
    header.setCurrentElement(ply::Face);
    header.addProperty(ply::VertexIndices, ply::List);
    header.setCurrentElement(ply::Vertex);
    header.addProperty(ply::X, ply::Float32);
    header.setProperties({{ply::Y, ply::Float64}, {ply::Z, ply::Int16}});
    QCOMPARE(header.getVertexPropertiesCount(), 2);
    QCOMPARE(header.getVertexProperty(0), ply::Y);
    QCOMPARE(header.getVertexPropertyType(1), ply::Int16);
    QCOMPARE(header.getFacePropertiesCount(), 1);
}

void tst_PLYHeader::copiesAndMoves()
{
    PLYHeader header;
    header.setVerticesCount(5);
    header.addProperty(ply::X, ply::Float32);
    header.setTexture(grid());
    PLYHeader copy(header);
    copy.addProperty(ply::Y, ply::Float32);
    QCOMPARE(header.getVertexPropertiesCount(), 1);
    QCOMPARE(copy.getVertexPropertiesCount(), 2);
    QCOMPARE(copy.getVerticesCount(), 5);
    PLYHeader const moved(std::move(copy));
    QCOMPARE(moved.getVertexPropertiesCount(), 2);
    QCOMPARE(moved.getTexture(), grid());
    PLYHeader assigned;
    assigned = moved;
    QCOMPARE(assigned.getVerticesCount(), 5);
    assigned = PLYHeader();
    QCOMPARE(assigned.getVerticesCount(), 0);
}

void tst_PLYHeader::looksColorsUp_data()
{
    QTest::addColumn<QVector2D>("uv");
    QTest::addColumn<QColor>("color");
    QTest::newRow("top left") << QVector2D(0, 1) << QColor(0, 0, 7);
    QTest::newRow("second column") << QVector2D(0.25f, 1) << QColor(10, 0, 7);
    QTest::newRow("just before the second column") << QVector2D(0.2499f, 1) << QColor(0, 0, 7);
    QTest::newRow("last column") << QVector2D(0.99f, 1) << QColor(30, 0, 7);
    QTest::newRow("second row") << QVector2D(0, 0.5f) << QColor(0, 100, 7);
    QTest::newRow("just above the second row") << QVector2D(0, 0.501f) << QColor(0, 0, 7);
    QTest::newRow("last row") << QVector2D(0.5f, 0.01f) << QColor(20, 100, 7);
    QTest::newRow("left of 0, cut to 0") << QVector2D(-0.2f, 1) << QColor(0, 0, 7);
    QTest::newRow("above 1, cut to row 0") << QVector2D(0, 1.4f) << QColor(0, 0, 7);
    QTest::newRow("u is 1") << QVector2D(1, 1) << QColor();
    QTest::newRow("v is 0") << QVector2D(0, 0) << QColor();
    QTest::newRow("u is -1/4") << QVector2D(-0.25f, 1) << QColor();
    QTest::newRow("v is 1.5") << QVector2D(0, 1.5f) << QColor();
    QTest::newRow("u beyond int") << QVector2D(1e30f, 1) << QColor();
    QTest::newRow("v beyond int") << QVector2D(0, -1e30f) << QColor();
    QTest::newRow("u infinite") << QVector2D(infinity, 1) << QColor();
    QTest::newRow("v infinite") << QVector2D(0, -infinity) << QColor();
    QTest::newRow("u NaN") << QVector2D(notANumber, 1) << QColor();
    QTest::newRow("v NaN") << QVector2D(0, notANumber) << QColor();
}

void tst_PLYHeader::looksColorsUp()
{
    QFETCH(QVector2D, uv);
    QFETCH(QColor, color);
    PLYHeader header;
    header.setTexture(grid());
    QCOMPARE(header.getTextureColor(uv), color);
}

void tst_PLYHeader::hasNoColorWithoutTexture()
{
    QVERIFY(!PLYHeader().getTextureColor({0, 1}).isValid());
    QVERIFY(!PLYHeader().getTextureColor({-0.5f, 1.5f}).isValid());
}

QTEST_GUILESS_MAIN(tst_PLYHeader)
#include "tst_PLYHeader.moc"
