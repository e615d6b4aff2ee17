#include "ply/PLYReader.h"
#include "support/Devices.h"
#include "support/Meshes.h"
#include "support/PlyFiles.h"

#include <QTest>

using support::plyColor;
using support::plyHeader;
using support::plyMaterial;
using support::plyNormal;
using support::plyPosition;

namespace {

QByteArray fullFile()
{
    support::PLYBody body;
    for (int i = 0; i < 3; ++i)
        body.f32({1, 2, 3, 0, 0, 1}).u8({1, 2, 3});
    body.triangle(0, 1, 2).triangle(2, 1, 0);
    for (int i = 0; i < 4; ++i)
        body.u8({1, 2, 3}).f32(1);
    body.f32({1, 2, 3}).u8(1);
    return plyHeader(3, plyPosition + plyNormal + plyColor, 2, plyMaterial) + body.bytes;
}

} // namespace

class tst_PLYReaderCancel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cancelledBeforeTheFirstLine();
    void cancelledAnywhere();
    void cancelledAmongPoints();
    void writesNoMessage();
};

void tst_PLYReaderCancel::cancelledBeforeTheFirstLine()
{
    std::atomic<bool> const cancel = true;
    PLYReader reader(PLYReader::MeshMode);
    QVERIFY(!reader.read(fullFile(), cancel));
    QVERIFY(reader.getMesh().isNull());
    QVERIFY(!reader.getMaterial());
    QVERIFY(cancel);
}

// Whichever byte it is that sets the flag, the read fails and keeps what was there.
void tst_PLYReaderCancel::cancelledAnywhere()
{
    QByteArray const file = fullFile();
    for (qint64 offset = 0; offset < file.size(); ++offset) {
        support::CancellingDevice device(file, offset);
        PLYReader reader(PLYReader::MeshMode);
        QVERIFY2(!reader.read(&device, device.cancel), QByteArray::number(offset).constData());
        QVERIFY(reader.getMesh().isNull());
        QVERIFY(!reader.getMaterial());
        // It stops at the next line or value, not some time later.
        QVERIFY(device.pos() <= offset + 64);
    }
    support::CancellingDevice device(file, file.size() + 1);
    PLYReader reader(PLYReader::MeshMode);
    QVERIFY(reader.read(&device, device.cancel));
    QVERIFY(reader.getMaterial());
}

void tst_PLYReaderCancel::cancelledAmongPoints()
{
    QByteArray const file =
        plyHeader(3, plyPosition, 0) + support::PLYBody().f32({1, 2, 3, 4, 5, 6, 7, 8, 9}).bytes;
    for (qint64 offset = file.size() - 36; offset < file.size() - 4; ++offset) {
        support::CancellingDevice device(file, offset);
        PLYReader reader(PLYReader::PointCloudMode);
        QVERIFY2(!reader.read(&device, device.cancel),
                 (QByteArray::number(offset) + " of " + QByteArray::number(file.size())).constData());
        QVERIFY(reader.getPointCloud().positions.isEmpty());
    }
}

// Lines that would be reported, behind the place where reading stops.
void tst_PLYReaderCancel::writesNoMessage()
{
    std::atomic<bool> const cancel = true;
    PLYReader reader(PLYReader::MeshMode);
    QVERIFY(!reader.read(QByteArray("comment TextureFile no.png\n") + fullFile(), cancel));
    for (QByteArray const line : {"element face 1\n", "property float what\n", "format ascii 1.0\n"}) {
        QByteArray const start = "ply\ncomment padding\n";
        support::CancellingDevice device(start + line + fullFile(), start.size() - 1);
        QVERIFY(!reader.read(&device, device.cancel));
    }
    QByteArray const ascii = fullFile().replace("binary_little_endian", "ascii");
    support::CancellingDevice device(ascii, ascii.indexOf("end_header"));
    QVERIFY(!reader.read(&device, device.cancel));
}

QTEST_GUILESS_MAIN(tst_PLYReaderCancel)
#include "tst_PLYReaderCancel.moc"
