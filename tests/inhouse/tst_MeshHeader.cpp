#include "inhouse/data/MeshHeader.h"
#include "inhouse/data/Optional.h"

#include <QTest>
#include <QTimeZone>

#include <type_traits>

namespace {

MeshHeader full()
{
    return {QStringLiteral("Intraoral ü"), QStringLiteral("SN-0815"), true, QStringLiteral("4.2.1"),
            QDateTime(QDate(2024, 2, 29), QTime(13, 14, 15), Qt::UTC)};
}

bool isFull(MeshHeader const& header)
{
    return header.getScannerName() == QStringLiteral("Intraoral ü") &&
           header.getScannerSerial() == QStringLiteral("SN-0815") && header.isImported() &&
           header.getSoftwareVersion() == QStringLiteral("4.2.1") &&
           header.getAcquisitionDate() == QDateTime(QDate(2024, 2, 29), QTime(13, 14, 15), Qt::UTC);
}

} // namespace

class tst_MeshHeader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isBlankWhenMade();
    void holdsWhatItIsGiven();
    void copies();
    void livesInAnOptional();
};

void tst_MeshHeader::isBlankWhenMade()
{
    MeshHeader const header;
    QVERIFY(header.getScannerName().isEmpty());
    QVERIFY(header.getScannerSerial().isEmpty());
    QVERIFY(!header.isImported());
    QVERIFY(header.getSoftwareVersion().isEmpty());
    QVERIFY(!header.getAcquisitionDate().isValid());
}

void tst_MeshHeader::holdsWhatItIsGiven()
{
    QVERIFY(isFull(full()));
    QVERIFY(!MeshHeader({}, {}, false, {}, {}).isImported());
}

void tst_MeshHeader::copies()
{
    static_assert(std::has_virtual_destructor_v<MeshHeader>);
    MeshHeader const original = full();
    MeshHeader copy(original);
    QVERIFY(isFull(copy));
    copy = MeshHeader();
    QVERIFY(copy.getScannerName().isEmpty());
    QVERIFY(isFull(original));
    copy = original;
    QVERIFY(isFull(copy));
}

void tst_MeshHeader::livesInAnOptional()
{
    utility::Optional<MeshHeader> header;
    QVERIFY(!header.has_value());
    header = full();
    QVERIFY(isFull(header.value()));
}

QTEST_APPLESS_MAIN(tst_MeshHeader)
#include "tst_MeshHeader.moc"
