#include "scene/AssociatedShapesXMLReader.h"
#include "support/StlFiles.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QByteArray joined(int count, auto const& piece)
{
    QByteArray bytes;
    for (int i = 0; i < count; ++i)
        bytes += piece(QByteArray::number(i));
    return bytes;
}

QByteArray wrapped(QByteArray const& content, QByteArray const& doctype = {})
{
    return doctype +
           "<root><shapes><shape materialId='m'>a.stl</shape></shapes><materials><material id='m'/>"
           "</materials>" +
           content + "</root>";
}

QByteArray doctypeWith(QByteArray const& subset)
{
    return "<!DOCTYPE root [" + subset + "]>";
}

// Entities of entities: 100 to the power of `levels` in the end, of `seed` each.
QByteArray bomb(int levels, QByteArray const& seed)
{
    QByteArray subset = "<!ENTITY e0 '" + seed + "'>";
    for (int i = 1; i <= levels; ++i)
        subset += "<!ENTITY e" + QByteArray::number(i) + " '" +
                  ("&e" + QByteArray::number(i - 1) + ';').repeated(100) + "'>";
    return doctypeWith(subset);
}

QByteArray attribute(QByteArray const& number)
{
    return " a" + number + "=''";
}

QMap<QString, QByteArray> bundle(QByteArray const& document)
{
    return {{u"doc"_s, document}, {u"a.stl"_s, support::binaryStl({support::loneFacet(1)})}};
}

} // namespace

class tst_AssociatedShapesXMLHostile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void refuses_data();
    void refuses();
    void accepts_data();
    void accepts();
    void refusesFilesWithoutAnEnd();
};

void tst_AssociatedShapesXMLHostile::refuses_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::newRow("200 000 levels") << wrapped(QByteArray("<x>").repeated(200'000) +
                                               QByteArray("</x>").repeated(200'000));
    QTest::newRow("200 000 levels, never closed") << QByteArray("<x>").repeated(200'000);
    QTest::newRow("513 levels") << QByteArray("<x>").repeated(513) + QByteArray("</x>").repeated(513);
    QTest::newRow("40 000 attributes") << wrapped("<x" + joined(40'000, attribute) + "/>");
    QTest::newRow("40 000 attributes after quoted brackets")
        << wrapped("<x q='>' r=\"'>\"" + joined(40'000, attribute) + "/>");
    QTest::newRow("40 000 attributes after a comment with a quote")
        << wrapped("<!-- it's --><x" + joined(40'000, attribute) + "/>");
    QTest::newRow("a bomb of text") << wrapped("&e9;", bomb(9, "ha"));
    QTest::newRow("a bomb of nothing") << wrapped("&e9;", bomb(9, ""));
    QTest::newRow("a bomb of nothing in an attribute") << wrapped("<x y='&e9;'/>", bomb(9, ""));
    QTest::newRow("a bomb of elements") << wrapped("&e9;", bomb(9, "<x/>"));
    QTest::newRow("an entity of itself") << wrapped("&e;", doctypeWith("<!ENTITY e '&e;'>"));
    QTest::newRow("100 000 references to one entity") << wrapped(
        QByteArray("&e;").repeated(100'000), doctypeWith("<!ENTITY e '" + QByteArray(4000, 'x') + "'>"));
    QTest::newRow("100 000 references in an attribute")
        << wrapped("<x y='" + QByteArray("&e;").repeated(100'000) + "'/>",
                   doctypeWith("<!ENTITY e '" + QByteArray(4000, 'x') + "'>"));
    QTest::newRow("100 000 default attributes")
        << wrapped("", doctypeWith(joined(100'000, [](QByteArray const& number) {
                       return "<!ATTLIST x a" + number + " CDATA 'd'>";
                   })));
    QTest::newRow("default attributes for a million elements") << wrapped(
        QByteArray("<x/>").repeated(1'000'000), doctypeWith(joined(100, [](QByteArray const& number) {
            return "<!ATTLIST x a" + number + " CDATA 'd'>";
        })));
    QTest::newRow("a long default for many elements")
        << wrapped(QByteArray("<x/>").repeated(10'000),
                   doctypeWith("<!ATTLIST x a CDATA '" + QByteArray(60'000, 'd') + "'>"));
    QTest::newRow("a text of 100 MB") << wrapped("<x>" + QByteArray(100'000'000, 'x') + "</x>");
    QTest::newRow("a long text in shapes in shapes")
        << wrapped(QByteArray("<shape>").repeated(400) + QByteArray(1'000'000, 'x') +
                   QByteArray("</shape>").repeated(400));
    QTest::newRow("100 000 attributes that take a hundred times their bytes")
        << wrapped(QByteArray("<x y=''/>").repeated(100'000));
    for (char const* const cut : {"<", "<root", "<root a=", "<root a='", "<root a='b'", "<root><!--",
                                  "<!DOCTYPE", "<!DOCTYPE root [", "<root><![CDATA[", "<?xml", "<root>&e"})
        QTest::addRow("cut: %s", cut) << QByteArray(cut);
    QTest::newRow("an unknown encoding") << "<?xml version='1.0' encoding='x-unheard-of'?>" + wrapped("");
}

void tst_AssociatedShapesXMLHostile::refuses()
{
    QFETCH(QByteArray, document);
    QTest::ignoreMessage(QtWarningMsg, "Could not parse doc");
    AssociatedShapesXMLReader reader;
    QVERIFY(!reader.read(bundle(document), u"doc"_s));
    QVERIFY(reader.takeMeshes().isEmpty());
}

void tst_AssociatedShapesXMLHostile::accepts_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::newRow("500 levels") << wrapped(QByteArray("<x>").repeated(500) +
                                           QByteArray("</x>").repeated(500));
    QTest::newRow("200 attributes") << wrapped("<x" + joined(200, attribute) + "/>");
    QTest::newRow("many equals signs")
        << wrapped("<!-- <" + QByteArray(100'000, '=') + " it's --><x a='" + QByteArray(100'000, '=') +
                   "'/><![CDATA[<x " + QByteArray(100'000, '=') + "]]><?pi <x " + QByteArray(100'000, '=') +
                   "?>" + QByteArray(100'000, '='));
    QTest::newRow("many predefined references")
        << wrapped("<x>" + QByteArray("&amp;&lt;&gt;&quot;&apos;&#65;&#x42;").repeated(50'000) + "</x>");
    QTest::newRow("entities") << wrapped("<x y='&d;'>&e;&d;</x>",
                                         doctypeWith("<!-- it's > --><?pi '>?><!ENTITY d 'd'>\n"
                                                     "<!ENTITY e \"in &d; '>\">"));
    QTest::newRow("5000 references") << wrapped(QByteArray("&e;").repeated(5000),
                                                doctypeWith("<!ENTITY e 'x'>"));
    QTest::newRow("a doctype with an address")
        << wrapped("", "<!DOCTYPE root PUBLIC \"-//It's//EN\" 'shapes>.dtd'>");
    QTest::newRow("default attributes")
        << wrapped("<x/>", doctypeWith("<!ATTLIST x a CDATA 'd' b CDATA \"e\">"));
    QTest::newRow("20 MB of text elsewhere") << wrapped("<x>" + QByteArray(20'000'000, 'x') + "</x>");
    QTest::newRow("20 000 elements elsewhere") << wrapped(QByteArray("<x y='z'>t</x>").repeated(20'000));
    QTest::newRow("5000 shapes and materials")
        << wrapped("", {})
               .replace("</shapes>",
                        QByteArray("<shape materialId='k'>a.stl</shape>").repeated(5000) + "</shapes>")
               .replace("</materials>",
                        QByteArray(
                            "<material id='n' a='' b='' c='' d='' e='' f='' g='' h='' i='' j='' k='' l=''/>")
                                .repeated(5000) +
                            "</materials>");
    QTest::newRow("100 000 plain elements elsewhere") << wrapped(QByteArray("<x>t</x>").repeated(100'000));
}

void tst_AssociatedShapesXMLHostile::accepts()
{
    QFETCH(QByteArray, document);
    AssociatedShapesXMLReader reader;
    QVERIFY(reader.read(bundle(document), u"doc"_s));
    QCOMPARE(reader.takeMeshes().size(), 1);
}

void tst_AssociatedShapesXMLHostile::refusesFilesWithoutAnEnd()
{
    QString const path = u"/dev/zero"_s;
    if (!QFile::exists(path))
        QSKIP("no device without an end");
    QTest::ignoreMessage(QtWarningMsg, "Could not parse  \"/dev/zero\"");
    AssociatedShapesXMLReader reader;
    QVERIFY(!reader.read(path));
}

QTEST_APPLESS_MAIN(tst_AssociatedShapesXMLHostile)
#include "tst_AssociatedShapesXMLHostile.moc"
