#include "scene/ShapeNodeIOHelper.h"

#include "inhouse/data/ShapeNodeIO.h"
#include "scene/BinaryIOHelper.h"

#include <QDataStream>
#include <QDebug>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QVersionNumber>

#include <new>

namespace {

constexpr int streamVersion = QDataStream::Qt_5_15;
static_assert(streamVersion == 19);

QVersionNumber versionNumber(std::pair<unsigned, unsigned> const& version)
{
    return {static_cast<int>(version.first), static_cast<int>(version.second)};
}

// Want of memory is a failure like any other: null or false.
template <typename Step>
auto guarded(Step const& step) -> decltype(step())
{
    try {
        return step();
    } catch (std::bad_alloc const&) {
        return {};
    }
}

// Qt has something to say of an empty name; what becomes of it is for the callers to tell.
bool openForReading(QFile& file)
{
    return !file.fileName().isEmpty() && file.open(QIODevice::ReadOnly);
}

bool openForWriting(QFile& file)
{
    if (file.fileName().isEmpty())
        return false;
    QDir().mkpath(QFileInfo(file.fileName()).absolutePath());
    return file.open(QIODevice::WriteOnly);
}

void writeLatestVersion(QDataStream& stream)
{
    stream.setVersion(streamVersion);
    auto const [major, minor] = ShapeNodeIO::LATEST_BINARY_VERSION;
    BinaryIOHelper::writeVersion(stream, major, minor);
}

std::unique_ptr<geometry::ShapeNode> readTree(QString const& fileName, QVersionNumber const& versionIfMissing,
                                              bool flag)
{
    QFile file(fileName);
    if (!openForReading(file)) {
        qWarning() << "ShapeNodeIOHelper : unable to load shape node from file: " << fileName;
        return nullptr;
    }
    QDataStream stream(&file);
    stream.setVersion(streamVersion);
    auto const version = BinaryIOHelper::readVersion(stream);
    // The rollback marks the stream as read past its end, which it is not.
    if (!version)
        stream.resetStatus();
    auto root =
        ShapeNodeIO::loadRecursive(&stream, version ? versionNumber(*version) : versionIfMissing, flag);
    if (!stream.atEnd())
        qWarning() << "ShapeNodeIOHelper: QDataStream didn't reach end of stream. This might indicate an "
                      "extraction error!";
    return root;
}

std::unique_ptr<geometry::Shape> readShapeFile(QString const& fileName)
{
    QFile file(fileName);
    if (!openForReading(file)) {
        qCritical() << "ShapeNodeIOHelper : unable to open file: " << fileName;
        return nullptr;
    }
    QDataStream stream(&file);
    stream.setVersion(streamVersion);
    auto const version = BinaryIOHelper::readVersion(stream);
    if (!version) {
        qCritical() << "ShapeNodeIOHelper : unable to read version: " << fileName;
        return nullptr;
    }
    auto shape = std::make_unique<geometry::Shape>();
    if (!shape->loadBinary(&stream, versionNumber(*version), false)) {
        qCritical() << "ShapeNodeIOHelper : Shape::loadBinary failed, file: " << fileName;
        return nullptr;
    }
    return shape;
}

bool writeShape(QString const& fileName, geometry::Shape const& shape)
{
    QFile file(fileName);
    if (!openForWriting(file)) {
        qCritical() << "ShapeNodeIOHelper : unable to save shape node to file: " << fileName;
        return false;
    }
    QDataStream stream(&file);
    writeLatestVersion(stream);
    if (!shape.saveBinary(&stream)) {
        qCritical() << "ShapeNodeIOHelper : Shape::saveBinary failed, file: " << fileName;
        return false;
    }
    return true;
}

bool writeTree(QString const& fileName, geometry::ShapeNode const* node)
{
    QFile file(fileName);
    if (!openForWriting(file)) {
        qWarning() << "ShapeNodeIOHelper : unable to save shape node to file: " << fileName;
        return false;
    }
    QDataStream stream(&file);
    writeLatestVersion(stream);
    ShapeNodeIO::saveRecursive(node, &stream);
    return true;
}

} // namespace

std::unique_ptr<geometry::ShapeNode>
ShapeNodeIOHelper::read(QString const& fileName, QVersionNumber const& versionIfMissing, bool flag)
{
    return guarded([&] { return readTree(fileName, versionIfMissing, flag); });
}

std::unique_ptr<geometry::Shape> ShapeNodeIOHelper::readShape(QString const& fileName)
{
    return guarded([&] { return readShapeFile(fileName); });
}

bool ShapeNodeIOHelper::write(QString const& fileName, geometry::Shape const& shape)
{
    return guarded([&] { return writeShape(fileName, shape); });
}

bool ShapeNodeIOHelper::write(QString const& fileName, geometry::ShapeNode* node)
{
    return guarded([&] { return writeTree(fileName, node); });
}
