#pragma once

#include "obj/OBJReader.h"

/// What one read collects and drops at its end.
struct OBJReader::WorkingLists
{
    QList<QVector3D> positions;
    QList<QVector2D> textureCoordinates;
    QList<QVector3D> normals;
    // a, b, c, -1 for each face, the three lists in step.
    QList<int> positionIndices;
    QList<int> normalIndices;
    QList<int> textureIndices;
    MaterialUsage usage;
    QString currentMaterial;
    // The list of `currentMaterial` in `usage`; null until its first face.
    QList<unsigned int>* currentFaces = nullptr;
    unsigned int faceCount = 0;
};
