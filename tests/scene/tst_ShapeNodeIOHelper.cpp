#include "inhouse/data/ShapeNodeIO.h"
#include "scene/ShapeNodeIOHelper.h"
#include "support/Meshes.h"
#include "support/ShapeTreeBytes.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QVersionNumber>

using geometry::Material;
using geometry::Shape;
using geometry::ShapeNode;
using support::ShapeTreeBytes;
using support::shapeTreeHeader;

using namespace Qt::StringLiterals;

namespace {

QVersionNumber const v1(1, 0);
QVersionNumber const v2(2, 0);

constexpr auto notAtEnd = "ShapeNodeIOHelper: QDataStream didn't reach end of stream. This might indicate "
                          "an extraction error!";

Shape sampleShape()
{
    Shape shape;
    shape.setMesh(support::cube());
    shape.setMaterial(support::shapeTreeMaterial());
    return shape;
}

QByteArray shapeBytes()
{
    return ShapeTreeBytes().mesh(support::cube()).material(0).bytes;
}

QByteArray treeBytes()
{
    return ShapeTreeBytes().text(u"a"_s).u8(1).bytes + shapeBytes() +
           ShapeTreeBytes().u32(1).node(u"b"_s, 0).bytes;
}

QByteArray oldTreeBytes()
{
    return ShapeTreeBytes().text(u"old"_s).u8(1).mesh(support::cube()).u32(1).node(u"b"_s, 0).bytes;
}

} // namespace

class tst_ShapeNodeIOHelper : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void writesTrees();
    void writesShapes();
    void writesNullTrees();
    void makesDirectories();
    void replacesFiles();
    void saysWhenItCannotWrite();
    void saysWhenTheDiskIsFull();
    void readsBackTrees();
    void readsBackShapes();
    void passesTheFlagOn();
    void saysWhenItCannotOpen();
    void saysNothingMoreOfAnEmptyName();
    void readsFilesWithoutHeader();
    void treesThatBeginLikeAHeader_data();
    void treesThatBeginLikeAHeader();
    void aBigEndianLengthIsNoHeader();
    void filesOfAnyShortLength();
    void knowsUnknownVersions_data();
    void knowsUnknownVersions();
    void trailingBytes();
    void damagedTreesAreNull();
    void shapesNeedAHeader_data();
    void shapesNeedAHeader();
    void damagedShapesAreNull();

private:
    QString path(QString const& name) const { return folder.filePath(name); }
    QString store(QByteArray const& bytes) const
    {
        QFile file(path(u"stored"_s));
        return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() ? file.fileName()
                                                                                    : QString();
    }
    static QByteArray stored(QString const& name)
    {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    // "text: " followed by the name as the log quotes it.
    static QByteArray message(char const* text, QString const& name)
    {
        return QByteArray("ShapeNodeIOHelper : ") + text + " \"" + name.toUtf8() + '"';
    }
    void expect(QtMsgType level, QByteArray const& text) const
    {
        QTest::ignoreMessage(level, text.constData());
    }

    QTemporaryDir folder;
};

void tst_ShapeNodeIOHelper::writesTrees()
{
    ShapeNode root(u"a"_s, new Shape(sampleShape()));
    root.addChild(new ShapeNode(u"b"_s));
    QVERIFY(ShapeNodeIOHelper::write(path(u"tree"_s), &root));
    QCOMPARE(stored(path(u"tree"_s)), shapeTreeHeader(2, 0) + treeBytes());
}

void tst_ShapeNodeIOHelper::writesShapes()
{
    QVERIFY(ShapeNodeIOHelper::write(path(u"shape"_s), sampleShape()));
    QCOMPARE(stored(path(u"shape"_s)), shapeTreeHeader(2, 0) + shapeBytes());
}

void tst_ShapeNodeIOHelper::writesNullTrees()
{
    QVERIFY(ShapeNodeIOHelper::write(path(u"null"_s), nullptr));
    QCOMPARE(stored(path(u"null"_s)), shapeTreeHeader(2, 0));
    QVERIFY(!ShapeNodeIOHelper::read(path(u"null"_s), v2, false));
}

void tst_ShapeNodeIOHelper::makesDirectories()
{
    ShapeNode root(u"a"_s);
    QVERIFY(ShapeNodeIOHelper::write(path(u"one/two/tree"_s), &root));
    QVERIFY(ShapeNodeIOHelper::write(path(u"three/four/shape"_s), sampleShape()));
    QVERIFY(ShapeNodeIOHelper::read(path(u"one/two/tree"_s), v2, false));
    QVERIFY(ShapeNodeIOHelper::readShape(path(u"three/four/shape"_s)));
}

void tst_ShapeNodeIOHelper::replacesFiles()
{
    QString const name = store(QByteArray(10'000, 'x'));
    QVERIFY(ShapeNodeIOHelper::write(name, Shape()));
    QCOMPARE(stored(name), shapeTreeHeader(2, 0) + ShapeTreeBytes().emptyMesh().bytes +
                               stored(name).last(4 * 9 + 7 * 4 + 1));
}

void tst_ShapeNodeIOHelper::saysWhenItCannotWrite()
{
    QByteArray const text = message("unable to save shape node to file: ", folder.path());
    expect(QtCriticalMsg, text);
    QVERIFY(!ShapeNodeIOHelper::write(folder.path(), sampleShape()));
    ShapeNode root(u"a"_s);
    expect(QtWarningMsg, text);
    QVERIFY(!ShapeNodeIOHelper::write(folder.path(), &root));

    // Its directory cannot be made, as a file is in the way.
    QString const below = store("x") + u"/tree"_s;
    QByteArray const belowText = message("unable to save shape node to file: ", below);
    expect(QtCriticalMsg, belowText);
    QVERIFY(!ShapeNodeIOHelper::write(below, sampleShape()));
    expect(QtWarningMsg, belowText);
    QVERIFY(!ShapeNodeIOHelper::write(below, &root));
}

void tst_ShapeNodeIOHelper::saysWhenTheDiskIsFull()
{
    QString const full = u"/dev/full"_s;
    if (!QFile::exists(full))
        QSKIP("no device that is always full");
    expect(QtCriticalMsg, message("Shape::saveBinary failed, file: ", full));
    QVERIFY(!ShapeNodeIOHelper::write(full, sampleShape()));
    // Trees are not looked after.
    ShapeNode root(u"a"_s, new Shape(sampleShape()));
    QVERIFY(ShapeNodeIOHelper::write(full, &root));
}

void tst_ShapeNodeIOHelper::readsBackTrees()
{
    // The version for files without a header does not matter to one that has it.
    for (QVersionNumber const& ifMissing : {v1, v2, QVersionNumber()}) {
        auto const root =
            ShapeNodeIOHelper::read(store(shapeTreeHeader(2, 0) + treeBytes()), ifMissing, false);
        QVERIFY(root);
        QCOMPARE(root->getName(), u"a"_s);
        QVERIFY(support::sameBits(root->getShape()->getMesh(), support::cube()));
        QCOMPARE(root->getShape()->getMaterial(), support::shapeTreeMaterial());
        QCOMPARE(root->getChildren().size(), std::size_t(1));
        QCOMPARE(root->getChildren()[0]->getName(), u"b"_s);
        QVERIFY(!root->getChildren()[0]->getShape());
    }
    auto const old = ShapeNodeIOHelper::read(store(shapeTreeHeader(1, 0) + oldTreeBytes()), v2, false);
    QVERIFY(old);
    QCOMPARE(old->getName(), u"old"_s);
    QCOMPARE(old->getShape()->getMaterial(), Material());
}

void tst_ShapeNodeIOHelper::readsBackShapes()
{
    auto const shape = ShapeNodeIOHelper::readShape(store(shapeTreeHeader(2, 0) + shapeBytes()));
    QVERIFY(shape);
    QVERIFY(support::sameBits(shape->getMesh(), support::cube()));
    QCOMPARE(shape->getMaterial(), support::shapeTreeMaterial());
    auto const old = ShapeNodeIOHelper::readShape(
        store(shapeTreeHeader(1, 0) + ShapeTreeBytes().mesh(support::cube()).bytes));
    QVERIFY(old);
    QVERIFY(support::sameBits(old->getMesh(), support::cube()));
    QCOMPARE(old->getMaterial(), Material());
}

void tst_ShapeNodeIOHelper::passesTheFlagOn()
{
    for (QByteArray const& header : {shapeTreeHeader(2, 0), QByteArray()}) {
        QString const name = store(header + treeBytes());
        QCOMPARE(ShapeNodeIOHelper::read(name, v2, true)->getShape()->getMaterial(), Material());
        QCOMPARE(ShapeNodeIOHelper::read(name, v2, false)->getShape()->getMaterial(),
                 support::shapeTreeMaterial());
    }
}

void tst_ShapeNodeIOHelper::saysWhenItCannotOpen()
{
    QString const missing = path(u"missing \"file\""_s);
    QByteArray const quoted = path(u"missing \\\"file\\\""_s).toUtf8();
    expect(QtWarningMsg, "ShapeNodeIOHelper : unable to load shape node from file:  \"" + quoted + '"');
    QVERIFY(!ShapeNodeIOHelper::read(missing, v2, false));
    expect(QtCriticalMsg, "ShapeNodeIOHelper : unable to open file:  \"" + quoted + '"');
    QVERIFY(!ShapeNodeIOHelper::readShape(missing));
    expect(QtWarningMsg, message("unable to load shape node from file: ", folder.path()));
    QVERIFY(!ShapeNodeIOHelper::read(folder.path(), v2, false));
}

void tst_ShapeNodeIOHelper::saysNothingMoreOfAnEmptyName()
{
    expect(QtWarningMsg, message("unable to load shape node from file: ", {}));
    QVERIFY(!ShapeNodeIOHelper::read({}, v2, false));
    expect(QtCriticalMsg, message("unable to open file: ", {}));
    QVERIFY(!ShapeNodeIOHelper::readShape({}));
    expect(QtCriticalMsg, message("unable to save shape node to file: ", {}));
    QVERIFY(!ShapeNodeIOHelper::write({}, sampleShape()));
    ShapeNode root(u"a"_s);
    expect(QtWarningMsg, message("unable to save shape node to file: ", {}));
    QVERIFY(!ShapeNodeIOHelper::write({}, &root));
}

void tst_ShapeNodeIOHelper::readsFilesWithoutHeader()
{
    auto const old = ShapeNodeIOHelper::read(store(oldTreeBytes()), v1, false);
    QVERIFY(old);
    QCOMPARE(old->getName(), u"old"_s);
    QVERIFY(support::sameBits(old->getShape()->getMesh(), support::cube()));
    auto const newer = ShapeNodeIOHelper::read(store(treeBytes()), v2, false);
    QVERIFY(newer);
    QCOMPARE(newer->getShape()->getMaterial(), support::shapeTreeMaterial());
    expect(QtWarningMsg, notAtEnd);
    QVERIFY(!ShapeNodeIOHelper::read(store(treeBytes()), QVersionNumber(), false));
}

void tst_ShapeNodeIOHelper::treesThatBeginLikeAHeader_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("name");
    QTest::newRow("a name of 38 units")
        << ShapeTreeBytes().node(QString(38, u'n'), 0).bytes << QString(38, u'n');
    QString const wide = QString::fromLatin1("{3D7A9E42-6B1C-4F08-9E35-A2C4D6F81B07}");
    QTest::newRow("the magic text as a name") << ShapeTreeBytes().node(wide, 0).bytes << wide;
}

void tst_ShapeNodeIOHelper::treesThatBeginLikeAHeader()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, name);
    QVERIFY(bytes.startsWith(shapeTreeHeader(2, 0).first(4)));
    QString const file = store(bytes);
    auto const root = ShapeNodeIOHelper::read(file, v2, false);
    QVERIFY(root);
    QCOMPARE(root->getName(), name);
    expect(QtCriticalMsg, message("unable to read version: ", file));
    QVERIFY(!ShapeNodeIOHelper::readShape(file));
}

void tst_ShapeNodeIOHelper::aBigEndianLengthIsNoHeader()
{
    // As a tree it begins with a name of 600 million units, which ends with the file.
    QByteArray const header = QByteArray("\0\0\0\x26", 4) + shapeTreeHeader(2, 0).sliced(4);
    QVERIFY(!ShapeNodeIOHelper::read(store(header + treeBytes()), v2, false));
}

void tst_ShapeNodeIOHelper::filesOfAnyShortLength()
{
    QByteArray const versioned = shapeTreeHeader(2, 0) + treeBytes();
    for (qsizetype length = 0; length <= 60; ++length) {
        QString const name = store(versioned.first(length));
        QVERIFY(!ShapeNodeIOHelper::read(name, v2, false));
        expect(QtCriticalMsg,
               message(length < 42 ? "unable to read version: " : "Shape::loadBinary failed, file: ", name));
        QVERIFY(!ShapeNodeIOHelper::readShape(name));
    }
    // Without a header, each of these lengths but the shortest is a whole tree.
    for (int length = 0; length <= 26; ++length) {
        QString const nodeName(length, u'n');
        auto const root = ShapeNodeIOHelper::read(store(ShapeTreeBytes().node(nodeName, 0).bytes), v1, false);
        QVERIFY(root);
        QCOMPARE(root->getName(), nodeName);
    }
}

void tst_ShapeNodeIOHelper::knowsUnknownVersions_data()
{
    QTest::addColumn<unsigned>("major");
    QTest::addColumn<unsigned>("minor");
    QTest::newRow("0.0") << 0u << 0u;
    QTest::newRow("1.1") << 1u << 1u;
    QTest::newRow("3.0") << 3u << 0u;
    QTest::newRow("beyond int") << 0xFFFFFFFFu << 0xFFFFFFFFu;
    QTest::newRow("2 in the low byte") << 0x80000002u << 0u;
}

void tst_ShapeNodeIOHelper::knowsUnknownVersions()
{
    QFETCH(unsigned, major);
    QFETCH(unsigned, minor);
    QString const name = store(shapeTreeHeader(major, minor) + treeBytes());
    expect(QtWarningMsg, notAtEnd);
    QVERIFY(!ShapeNodeIOHelper::read(name, v2, false));
    expect(QtCriticalMsg, message("Shape::loadBinary failed, file: ", name));
    QVERIFY(!ShapeNodeIOHelper::readShape(name));
}

void tst_ShapeNodeIOHelper::trailingBytes()
{
    for (QByteArray const& header : {shapeTreeHeader(2, 0), QByteArray()}) {
        expect(QtWarningMsg, notAtEnd);
        auto const root = ShapeNodeIOHelper::read(store(header + treeBytes() + "x"), v2, false);
        QVERIFY(root);
        QCOMPARE(root->getName(), u"a"_s);
    }
    auto const shape = ShapeNodeIOHelper::readShape(store(shapeTreeHeader(2, 0) + shapeBytes() + "x"));
    QVERIFY(shape);
    QVERIFY(support::sameBits(shape->getMesh(), support::cube()));
}

void tst_ShapeNodeIOHelper::damagedTreesAreNull()
{
    QVERIFY(!ShapeNodeIOHelper::read(store(shapeTreeHeader(2, 0) + treeBytes().chopped(1)), v2, false));
    expect(QtWarningMsg, notAtEnd);
    QVERIFY(!ShapeNodeIOHelper::read(
        store(shapeTreeHeader(2, 0) + ShapeTreeBytes().text(u"a"_s).u8(7).u32(0).bytes), v2, false));
}

void tst_ShapeNodeIOHelper::shapesNeedAHeader_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("three bytes") << QByteArray("\x26\0\0", 3);
    QTest::newRow("no header") << shapeBytes();
    QTest::newRow("a tree without header") << treeBytes();
    QTest::newRow("length 38, another text") << QByteArray("\x26\0\0\0", 4) + QByteArray(46, '{');
    QTest::newRow("a big-endian length") << QByteArray("\0\0\0\x26", 4) + shapeTreeHeader(2, 0).sliced(4);
}

void tst_ShapeNodeIOHelper::shapesNeedAHeader()
{
    QFETCH(QByteArray, bytes);
    QString const name = store(bytes);
    expect(QtCriticalMsg, message("unable to read version: ", name));
    QVERIFY(!ShapeNodeIOHelper::readShape(name));
}

void tst_ShapeNodeIOHelper::damagedShapesAreNull()
{
    for (QByteArray const& rest : {QByteArray(), shapeBytes().chopped(1), QByteArray(1000, '\xFF')}) {
        QString const name = store(shapeTreeHeader(2, 0) + rest);
        expect(QtCriticalMsg, message("Shape::loadBinary failed, file: ", name));
        QVERIFY(!ShapeNodeIOHelper::readShape(name));
    }
}

QTEST_APPLESS_MAIN(tst_ShapeNodeIOHelper)
#include "tst_ShapeNodeIOHelper.moc"
