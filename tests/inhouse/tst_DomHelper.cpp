#include "inhouse/coreio/DomHelper.h"

#include <QDomDocument>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_DomHelper : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void findsTheFirstChild();
    void findsChildrenInOrder();
    void findsDescendantsInOrder();

private:
    QDomDocument document;
};

void tst_DomHelper::initTestCase()
{
    QVERIFY(document.setContent(QByteArray("<r><x><a n='1'/></x><a n='2'/>text<!-- c --><a n='3'>"
                                           "<a n='4'/></a><A n='5'/><b:a n='6'/></r>")));
}

void tst_DomHelper::findsTheFirstChild()
{
    QDomElement const root = document.documentElement();
    QCOMPARE(DomHelper::getFirstTagElement(root, u"a"_s).attribute(u"n"_s), u"2"_s);
    QVERIFY(DomHelper::getFirstTagElement(root, u"y"_s).isNull());
    QVERIFY(DomHelper::getFirstTagElement(QDomElement(), u"a"_s).isNull());
}

void tst_DomHelper::findsChildrenInOrder()
{
    QString numbers;
    for (QDomElement const& element : DomHelper::getTagElements(document.documentElement(), u"a"_s))
        numbers += element.attribute(u"n"_s);
    QCOMPARE(numbers, u"23"_s);
    QVERIFY(DomHelper::getTagElements(document.documentElement(), u"y"_s).isEmpty());
    QVERIFY(DomHelper::getTagElements(QDomElement(), u"a"_s).isEmpty());
}

void tst_DomHelper::findsDescendantsInOrder()
{
    QDomNodeList const all =
        deprecated::DomHelper::getTagElementsRecursively(document.documentElement(), u"a"_s);
    QString numbers;
    for (int i = 0; i < all.size(); ++i)
        numbers += all.at(i).toElement().attribute(u"n"_s);
    QCOMPARE(numbers, u"1234"_s);
    QCOMPARE(deprecated::DomHelper::getTagElementsRecursively(QDomElement(), u"a"_s).size(), 0);
}

QTEST_APPLESS_MAIN(tst_DomHelper)
#include "tst_DomHelper.moc"
