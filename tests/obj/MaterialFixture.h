#pragma once

#include "obj/OBJReader.h"
#include "support/ObjFiles.h"
#include "support/PrivateAccess.h"

#include <QTest>

#include <map>

// What the tests of materials share. For one source file of a program.

namespace support {

struct MaterialTable
{
    using Member = std::map<QString, OBJReader::ObjMaterial> OBJReader::*;
    friend Member privateMember(MaterialTable);
};
template struct PrivateMember<MaterialTable, &OBJReader::materials>;

struct FileNames
{
    using Member = std::vector<QString> (OBJReader::*)(QList<QString> const&) const;
    friend Member privateMember(FileNames);
};
template struct PrivateMember<FileNames, &OBJReader::reconstructMTLFileNames>;

struct HandleMTL
{
    using Member = OBJReader::Error (OBJReader::*)(QString const&);
    friend Member privateMember(HandleMTL);
};
template struct PrivateMember<HandleMTL, &OBJReader::handleMTL>;

struct FixNonExisting
{
    using Member = void (OBJReader::*)(OBJReader::MaterialUsage&) const;
    friend Member privateMember(FixNonExisting);
};
template struct PrivateMember<FixNonExisting, &OBJReader::fixNonExistingButUsedMaterials>;

struct Prune
{
    using Member = void (OBJReader::*)(OBJReader::MaterialUsage const&);
    friend Member privateMember(Prune);
};
template struct PrivateMember<Prune, &OBJReader::pruneUnusedMaterials>;

struct IsMixed
{
    using Member = bool (OBJReader::*)() const;
    friend Member privateMember(IsMixed);
};
template struct PrivateMember<IsMixed, &OBJReader::isMeshUsingTexturedAndNonTexturedMaterialsAtTheSameTime>;

struct FixMixed
{
    using Member = void (OBJReader::*)(QList<QVector2D>&, QList<int>&, OBJReader::MaterialUsage const&);
    friend Member privateMember(FixMixed);
};
template struct PrivateMember<FixMixed, &OBJReader::fixMixedMaterialUsage>;

} // namespace support

namespace materialtest {

inline std::atomic<bool> const running = false;
using Usage = OBJReader::MaterialUsage;
using Faces = QList<unsigned int>;

inline QByteArray const surface = "v 0 0 0\nv 1 0 0\nv 0 1 0\nvt 0 0\nvt 1 0\nvt 0 1\nf 1/1 2/2 3/3\n";

inline QString warning(auto const&... items)
{
    QString text;
    {
        QDebug debug(&text);
        (debug << ... << items);
    }
    return text.trimmed();
}

inline void expect(QString const& text)
{
    QTest::ignoreMessage(QtWarningMsg, text.toUtf8().constData());
}

inline QString replacementWarning(QString const& name, QString const& replacement)
{
    return warning("Corrupt OBJ file detected: Material ", name,
                   " is used but not defined. Replacing it with the first known textured material instead. (",
                   replacement, ")");
}

inline OBJReader::ObjMaterial textured()
{
    return {support::plainImage(2, 2, Qt::green), {}};
}

/// A reader beside its files.
struct Fixture
{
    support::ObjFolder folder;
    OBJReader reader;

    Fixture() { reader.setFileName(folder.path(QStringLiteral("scan.obj"))); }

    std::map<QString, OBJReader::ObjMaterial>& materials()
    {
        return reader.*privateMember(support::MaterialTable());
    }

    OBJReader::Error handleMTL(QString const& name)
    {
        return (reader.*privateMember(support::HandleMTL()))(name);
    }

    /// The result of reading a library of this content.
    OBJReader::Error readLibrary(QByteArray const& content)
    {
        folder.write(QStringLiteral("m.mtl"), content);
        return handleMTL(QStringLiteral("m.mtl"));
    }
};

} // namespace materialtest
