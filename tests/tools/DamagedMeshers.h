#pragma once

#include "volume/TetrahedralMesh.h"

#include <QTest>

#include <set>

/// Reads `text` with each of its bytes replaced by each of some that mean something. Whatever a damaged file
/// is taken for, its tetrahedra have four different points that are there.
inline void verifyDamagedAnywhere(QByteArray const& text,
                                  tool::Problem (*read)(QByteArrayView, tool::volume::TetrahedralMesh&))
{
    for (qsizetype at = 0; at < text.size(); ++at) {
        for (char const c : {'\0', '\n', ' ', '-', '0', '1', '4', '9', '$', 'e', '\xff'}) {
            QByteArray damaged = text;
            damaged[at] = c;
            tool::volume::TetrahedralMesh mesh;
            if (read(damaged, mesh))
                continue;
            QVERIFY(mesh.tetrahedronCount() > 0);
            for (auto tetrahedron = mesh.tetrahedra.begin(); tetrahedron != mesh.tetrahedra.end();
                 tetrahedron += 4) {
                std::set<qint32> const points(tetrahedron, tetrahedron + 4);
                QVERIFY(points.size() == 4 && *points.begin() >= 0 && *points.rbegin() < mesh.pointCount());
            }
        }
    }
}

/// Reads every beginning of `text` that is shorter than `least`: each is a problem.
inline void verifyCutAnywhere(QByteArray const& text, qsizetype least,
                              tool::Problem (*read)(QByteArrayView, tool::volume::TetrahedralMesh&))
{
    for (qsizetype length = 0; length < least; ++length) {
        tool::volume::TetrahedralMesh mesh;
        QVERIFY2(read(text.first(length), mesh), qPrintable(QString::number(length)));
    }
}
