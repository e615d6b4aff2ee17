#pragma once

#include "obj/OBJReader.h"
#include "obj/OBJTextureCache.h"

#include <algorithm>

/// Index lists in the making: a, b, c, -1 for each face, written without asking the list anew for each entry.
class OBJFaceIndices
{
public:
    void append(int a, int b, int c)
    {
        if (next == end)
            grow();
        next[0] = a;
        next[1] = b;
        next[2] = c;
        next[3] = -1;
        next += entriesPerFace;
    }

    /// The same for indices that whole files do without: the list stays empty until one of them is not -1.
    void appendOptional(int a, int b, int c, unsigned int facesBefore)
    {
        bool const isAbsent = (a & b & c) == -1;
        if (isAbsent && entries.isEmpty())
            return;
        if (entries.isEmpty())
            complete(facesBefore);
        append(a, b, c);
    }

    /// The entries. Nothing may be appended afterwards.
    QList<int> take()
    {
        entries.resize(next - entries.data());
        return std::move(entries);
    }

private:
    static constexpr qsizetype entriesPerFace = 4;

    void complete(unsigned int faces)
    {
        entries.resize(std::max<qsizetype>(1, faces) * entriesPerFace, -1);
        next = entries.data() + faces * entriesPerFace;
        end = entries.data() + entries.size();
    }

    void grow()
    {
        constexpr qsizetype smallest = 4096;
        qsizetype const used = next - entries.data();
        entries.resize(std::max(smallest, used + used / 2 / entriesPerFace * entriesPerFace));
        next = entries.data() + used;
        end = entries.data() + entries.size();
    }

    QList<int> entries;
    int* next = entries.data();
    int* end = next;
};

/// What is known while a material library is read.
struct OBJReader::LibraryReading
{
    // Of all libraries of the read.
    OBJTextureCache& textures;
    QString currentMaterial = {};
    bool hasWarned = false;
};

/// What one read collects and drops at its end.
struct OBJReader::WorkingLists
{
    QList<QVector3D> positions;
    QList<QVector2D> textureCoordinates;
    QList<QVector3D> normals;
    // While lines are read, the three in step.
    OBJFaceIndices positionFaces;
    OBJFaceIndices normalFaces;
    OBJFaceIndices textureFaces;
    // The same when all lines are read; the latter two are empty where no face has such an index.
    QList<int> positionIndices;
    QList<int> normalIndices;
    QList<int> textureIndices;
    MaterialUsage usage;
    QString currentMaterial;
    // The list of `currentMaterial` in `usage`; null until its first face.
    QList<unsigned int>* currentFaces = nullptr;
    unsigned int faceCount = 0;
    // The library that the material table is of, when to read it once more would change nothing and log
    // nothing.
    QString currentLibrary;
    // Of all libraries.
    OBJTextureCache textures;

    /// Brings all three index lists to the same length, with -1 for what is absent.
    void completeIndices()
    {
        for (QList<int>* const indices : {&normalIndices, &textureIndices}) {
            if (!indices->isEmpty())
                continue;
            // Not fill(), which does not look whether it got its memory.
            indices->reserve(positionIndices.size());
            indices->resize(positionIndices.size(), -1);
        }
    }
};
