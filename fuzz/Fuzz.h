#pragma once

#include "inhouse/data/Mesh.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QMessageLogContext>
#include <QStringList>
#include <QTemporaryDir>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

/// What the fuzz targets share: the invariants that every mesh from a reader keeps.
namespace fuzz {

inline QByteArray bytesOf(std::uint8_t const* data, std::size_t size)
{
    return {reinterpret_cast<char const*>(data), static_cast<qsizetype>(size)};
}

/// Ends the process where libFuzzer sees it.
inline void require(bool condition)
{
    if (!condition)
        std::abort();
}

inline bool hasOneEach(qsizetype count, qsizetype vertices)
{
    return count == 0 || count == vertices;
}

/// Triangles as a, b, c, -1 with indices in range, and lists that are empty or as long as the vertices.
inline void requireSound(geometry::Mesh const& mesh)
{
    qsizetype const vertices = mesh.vertices.size();
    require(mesh.indices.size() % 4 == 0);
    for (qsizetype i = 0; i < mesh.indices.size(); ++i)
        require(i % 4 == 3 ? mesh.indices[i] == -1 : mesh.indices[i] >= 0 && mesh.indices[i] < vertices);
    require(hasOneEach(mesh.normals.size(), vertices));
    require(hasOneEach(mesh.colors.size(), vertices));
    require(hasOneEach(mesh.textureCoordinates.size(), vertices));
}

template <typename List>
bool sameBytes(List const& a, List const& b)
{
    return a.size() == b.size() && (a.isEmpty() || std::memcmp(a.constData(), b.constData(),
                                                               static_cast<std::size_t>(a.size()) *
                                                                   sizeof(typename List::value_type)) == 0);
}

inline void requireSame(geometry::Mesh const& a, geometry::Mesh const& b)
{
    require(sameBytes(a.vertices, b.vertices) && sameBytes(a.normals, b.normals) && a.indices == b.indices &&
            a.colors == b.colors && sameBytes(a.textureCoordinates, b.textureCoordinates));
}

/// What the library has logged since the last `silence`.
inline QStringList& messages()
{
    static QStringList list;
    return list;
}

/// Keeps the library's messages off the terminal, and in `messages` from here on.
inline void silence()
{
    static bool const done = [] {
        qInstallMessageHandler(
            [](QtMsgType, QMessageLogContext const&, QString const& text) { messages() << text; });
        return true;
    }();
    static_cast<void>(done);
    messages().clear();
}

/// Decisions from the front of an input, a byte each; 0 when it is used up.
class Choices
{
public:
    explicit Choices(QByteArray const& input)
        : bytes(input)
    {}

    int byte() { return next < bytes.size() ? static_cast<unsigned char>(bytes[next++]) : 0; }
    int below(int count) { return byte() % count; }
    bool flag() { return below(2) == 1; }
    template <typename List>
    auto const& of(List const& list)
    {
        return list[static_cast<std::size_t>(below(static_cast<int>(list.size())))];
    }
    /// What no decision has taken.
    QByteArray rest() const { return bytes.sliced(next); }

private:
    QByteArray bytes;
    qsizetype next = 0;
};

/// A folder for readers that want files; it lies where TMPDIR says, best in memory.
class ScratchFolder
{
public:
    QString path(QString const& name) const { return folder.filePath(name); }
    QString write(QString const& name, QByteArray const& bytes) const
    {
        QFile file(path(name));
        require(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush());
        return file.fileName();
    }

private:
    QTemporaryDir folder;
};

} // namespace fuzz
