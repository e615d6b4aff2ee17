#pragma once

#include "vmesh/MTModelVMeshParser.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

/// A file of the given bytes that lives as long as the test that made it.
class VMeshFile
{
public:
    explicit VMeshFile(QByteArray const& bytes) { write(bytes); }

    void write(QByteArray const& bytes)
    {
        QFile file(path());
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), bytes.size());
    }
    QString path() const { return folder.filePath(QStringLiteral("mesh.vmesh")); }

private:
    QTemporaryDir folder;
};

inline QByteArray contentOf(QString const& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

inline void expectWarning(QByteArray const& message)
{
    QTest::ignoreMessage(QtWarningMsg, message.constData());
}

inline void expectBadLine(qint64 line)
{
    expectWarning("MTModelVMeshParser : could not parse line " + QByteArray::number(line) + " .");
}

/// Whether the record is as a default-constructed one.
inline bool isEmpty(MTModelVMesh const& mesh)
{
    return mesh.numTetrahedra == 0 && mesh.numFaces == 0 && mesh.numBoundFaces == 0 && mesh.numPoints == 0 &&
           mesh.points.isNull() && mesh.faces.isNull() && mesh.tetrahedra.isNull() &&
           mesh.triangles.isNull() && mesh.boundFaces.isNull();
}
