#include "Program.h"
#include "StlFiles.h"
#include "framework/MeshReader.h"
#include "framework/ScanMetadata.h"
#include "ply/PLYReader.h"
#include "support/Meshes.h"
#include "support/PlyFiles.h"

#include <QTemporaryDir>
#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;
using support::binaryStl;
using support::PLYBody;
using support::plyColor;
using support::plyHeader;
using support::plyPosition;
using support::plyTriangle;
using support::readFile;
using support::runProgram;
using support::stlFacet;
using support::verify;

namespace {

std::atomic<bool> const never = false;

MeshHeader const scan(u"ScanPro"_s, u"SN-1"_s, false, u"1.2"_s,
                      QDateTime(QDate(2024, 3, 1), QTime(0, 0), Qt::UTC));

QByteArray coloredTriangle()
{
    QByteArrayList const properties = plyPosition + plyColor + QByteArrayList{"property uchar alpha"};
    return plyHeader(3, properties, 1, {"element velquin_material 1", "property float shininess"}) +
           PLYBody()
               .f32({0, 0, 0})
               .u8({1, 2, 3, 4})
               .f32({1, 0, 0})
               .u8({5, 6, 7, 255})
               .f32({0, 1, 0})
               .u8({8, 9, 10, 0})
               .triangle(0, 1, 2)
               .f32(77)
               .bytes;
}

} // namespace

class tst_ProgramConvertPly : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        folder.emplace();
        QVERIFY(folder->isValid());
        write(u"in.stl"_s, binaryStl(stlFacet(0) + stlFacet(3)));
        write(u"in.ply"_s, plyTriangle());
        write(u"colored.ply"_s, coloredTriangle());
    }

    void stlToPlyAndBack()
    {
        verify(convert({u"in.stl"_s, u"out.ply"_s}), 0, {}, {});
        auto const fromStl = MeshReader::read(folder->filePath(u"in.stl"_s));
        auto const fromPly = MeshReader::read(folder->filePath(u"out.ply"_s));
        QVERIFY(fromStl && fromPly);
        QVERIFY(support::sameBits(*fromStl, *fromPly));
        verify(convert({u"out.ply"_s, u"again.stl"_s}), 0, {}, {});
        QCOMPARE(read(u"again.stl"_s), read(u"in.stl"_s));
    }

    void plyToOthers()
    {
        verify(convert({u"in.ply"_s, u"out.xyz"_s}), 0, {}, {});
        QCOMPARE(read(u"out.xyz"_s),
                 QByteArray(
                     "0.000000 0.000000 0.000000\n1.000000 0.000000 0.000000\n0.000000 1.000000 0.000000\n"));
        verify(convert({u"in.ply"_s, u"out.array"_s}), 0, {}, {});
        QCOMPARE(read(u"out.array"_s).size(), 8 + 48 * 3 + 4 * 4);
        write(u"CAPITALS.PLY"_s, plyTriangle());
        verify(convert({u"CAPITALS.PLY"_s, u"OUT.Ply"_s}), 0, {}, {});
    }

    void alphaIsWrittenOnRequest()
    {
        verify(convert({u"colored.ply"_s, u"out.ply"_s, u"--alpha"_s}), 0, {}, {});
        QCOMPARE(meshOf(u"out.ply"_s).colors, (QList<unsigned int>{0x04030201u, 0xFF070605u, 0x000A0908u}));
        verify(convert({u"colored.ply"_s, u"opaque.ply"_s}), 0, {},
               u"surfaceio: warning: colours lose their alpha; --alpha writes it\n"_s);
        QCOMPARE(meshOf(u"opaque.ply"_s).colors,
                 (QList<unsigned int>{0xFF030201u, 0xFF070605u, 0xFF0A0908u}));
    }

    void materialIsCarriedOrChosen()
    {
        verify(convert({u"colored.ply"_s, u"out.ply"_s, u"--alpha"_s}), 0, {}, {});
        QVERIFY(materialOf(u"out.ply"_s));
        QCOMPARE(materialOf(u"out.ply"_s)->shininess, 77.0f);
        verify(convert({u"colored.ply"_s, u"m.ply"_s, u"--alpha"_s, u"--material"_s, u"metal"_s}), 0, {}, {});
        QVERIFY(materialOf(u"m.ply"_s) == geometry::Material::metal());
        verify(convert({u"in.stl"_s, u"d.ply"_s, u"--material"_s, u"distractor"_s}), 0, {}, {});
        QVERIFY(materialOf(u"d.ply"_s) == geometry::Material::distractor());
        verify(convert({u"in.stl"_s, u"none.ply"_s}), 0, {}, {});
        QVERIFY(!materialOf(u"none.ply"_s));
    }

    void metadataAreWritten()
    {
        QStringList const options = {u"--scanner-name"_s,
                                     u"Scan\u00AEPro 3"_s,
                                     u"--scanner-serial"_s,
                                     u"SN 7"_s,
                                     u"--imported"_s,
                                     u"--software-version"_s,
                                     u"1.2"_s,
                                     u"--acquired"_s,
                                     u"2024-05-17"_s};
        verify(convert(QStringList{u"in.ply"_s, u"out.ply"_s} + options), 0, {}, {});
        QVERIFY(read(u"out.ply"_s)
                    .startsWith("ply\n"
                                "format binary_little_endian 1.0\n"
                                "comment scan information\n"
                                "comment scanner name: ScanPro 3\n"
                                "comment scanner serial: SN 7\n"
                                "comment imported: 1\n"
                                "comment software version: 1.2\n"
                                "comment acquisition date: 2024-05-17\n"
                                "element vertex 3\n"));
        verify(convert(QStringList{u"in.ply"_s, u"out.stl"_s} + options), 0, {}, {});
        MeshHeader const header(u"Scan\u00AEPro 3"_s, u"SN 7"_s, true, u"1.2"_s,
                                QDateTime(QDate(2024, 5, 17), QTime(0, 0), Qt::UTC));
        QCOMPARE(read(u"out.stl"_s).left(80), conversions::toByteArray(header));
    }

    void metadataAreCarried()
    {
        write(u"scan.stl"_s, binaryStl(stlFacet(0), conversions::toByteArray(scan)));
        verify(convert({u"scan.stl"_s, u"out.ply"_s}), 0, {}, {});
        QVERIFY(read(u"out.ply"_s).contains("\ncomment scanner serial: SN-1\ncomment imported: 0\n"));
        verify(convert({u"out.ply"_s, u"again.stl"_s, u"--imported"_s, u"--scanner-serial"_s, u"X"_s}), 0, {},
               {});
        MeshHeader const changed(u"ScanPro"_s, u"X"_s, true, u"1.2"_s, scan.getAcquisitionDate());
        QCOMPARE(read(u"again.stl"_s).left(80), conversions::toByteArray(changed));
    }

    void refusal_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QString>("errorPattern");
        auto const row = [](char const* name, QStringList const& arguments, int exitCode,
                            char const* pattern) {
            QTest::newRow(name) << arguments << exitCode << QString::fromUtf8(pattern);
        };
        row("unknown material", {u"in.ply"_s, u"out.ply"_s, u"--material"_s, u"wood"_s}, 2,
            "surfaceio: --material: .*");
        row("no date", {u"in.ply"_s, u"out.ply"_s, u"--acquired"_s, u"17.5.2024"_s}, 2,
            "surfaceio: --acquired: expected yyyy-mm-dd\n.*");
        row("no such day", {u"in.ply"_s, u"out.ply"_s, u"--acquired"_s, u"2023-02-29"_s}, 2,
            "surfaceio: --acquired: expected yyyy-mm-dd\n.*");
        row("letters beyond ASCII", {u"in.ply"_s, u"out.ply"_s, u"--scanner-serial"_s, u"Z\u00E4hne"_s}, 2,
            "surfaceio: out.ply: expected a scanner serial of ASCII letters, found \"Zähne\": in a PLY "
            "header others cut its end off\n");
        row("line feed", {u"in.ply"_s, u"out.ply"_s, u"--software-version"_s, u"1\nelement"_s}, 2,
            "surfaceio: out.ply: expected a software version of ASCII letters, .*");
        row("points", {u"points.ply"_s, u"out.stl"_s}, 4,
            "surfaceio: points.ply: holds 1 point and no faces; as a mesh it is not read\n");
        row("quad", {u"quad.ply"_s, u"out.stl"_s}, 4,
            "surfaceio: warning: Unsupported indices count \\( 4 \\) \\(only triangles supported\\)!\n"
            "surfaceio: quad.ply: has a face of 4 corners; only triangles are read\n");
    }

    void refusal()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, exitCode);
        QFETCH(QString, errorPattern);
        write(u"points.ply"_s, plyHeader(1, plyPosition, 0) + PLYBody().f32({1, 2, 3}).bytes);
        write(u"quad.ply"_s, plyTriangle().chopped(13) + PLYBody().u8(4).bytes + QByteArray(16, '\0'));
        verify(convert(arguments), exitCode, {}, errorPattern);
        QVERIFY(!QFile::exists(folder->filePath(u"out.ply"_s)));
        QVERIFY(!QFile::exists(folder->filePath(u"out.stl"_s)));
    }

    void optionsThatTheFormatDoesNotHold()
    {
        verify(convert({u"in.stl"_s, u"out.xyz"_s, u"--imported"_s}), 0, {},
               u"surfaceio: warning: a file of the kind \"XYZ points\" holds no scan metadata\n"_s);
        verify(convert({u"in.ply"_s, u"out.stl"_s, u"--material"_s, u"metal"_s}), 0, {},
               u"surfaceio: warning: a file of the kind \"binary STL\" holds no alpha and no material\n"_s);
        verify(convert({u"--strict"_s, u"in.ply"_s, u"strict.stl"_s, u"--alpha"_s}), 5, {}, u".*"_s);
    }

    void cutFileIsReported()
    {
        write(u"cut.ply"_s, plyHeader(3, plyPosition, 2) + plyTriangle().right(49));
        verify(convert({u"cut.ply"_s, u"out.stl"_s}), 0, {},
               u"surfaceio: warning: cut.ply: 13 bytes are missing at its end; what is there was read\n"_s);
        QCOMPARE(read(u"out.stl"_s).size(), 84 + 50);
    }

private:
    void write(QString const& name, QByteArray const& bytes)
    {
        QVERIFY(support::writeFile(folder->filePath(name), bytes));
    }
    QByteArray read(QString const& name) { return readFile(folder->filePath(name)); }
    support::Outcome convert(QStringList const& arguments)
    {
        return runProgram(QStringList{u"convert"_s} + arguments, folder->path());
    }
    geometry::Mesh meshOf(QString const& name)
    {
        return MeshReader::read(folder->filePath(name)).value_or(geometry::Mesh());
    }
    utility::Optional<geometry::Material> materialOf(QString const& name)
    {
        PLYReader reader(PLYReader::MeshMode);
        reader.setFileName(folder->filePath(name));
        reader.read(never);
        return reader.getMaterial();
    }

    std::optional<QTemporaryDir> folder;
};

QTEST_GUILESS_MAIN(tst_ProgramConvertPly)
#include "tst_ProgramConvertPly.moc"
