#include "scene/ShapeNodeIOHelper.h"

#include "framework/FileAccess.h"
#include "framework/MemoryGuard.h"
#include "inhouse/data/ShapeNodeIO.h"
#include "scene/BinaryIOHelper.h"

#include <QDataStream>
#include <QDebug>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QVersionNumber>

namespace {

constexpr int streamVersion = QDataStream::Qt_5_15;
static_assert(streamVersion == 19);

QVersionNumber versionNumber(std::pair<unsigned, unsigned> const& version)
{
    return {static_cast<int>(version.first), static_cast<int>(version.second)};
}

bool openForWriting(QFile& file)
{
    if (!file.fileName().isEmpty()) // Qt logs what is asked of an empty name
        QDir().mkpath(QFileInfo(file.fileName()).absolutePath());
    return files::open(file, QIODevice::WriteOnly);
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
    if (!files::open(file, QIODevice::ReadOnly)) {
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
    if (!files::open(file, QIODevice::ReadOnly)) {
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
    return memory::resultOr(std::unique_ptr<geometry::ShapeNode>(),
                            [&] { return readTree(fileName, versionIfMissing, flag); });
}

std::unique_ptr<geometry::Shape> ShapeNodeIOHelper::readShape(QString const& fileName)
{
    return memory::resultOr(std::unique_ptr<geometry::Shape>(), [&] { return readShapeFile(fileName); });
}

bool ShapeNodeIOHelper::write(QString const& fileName, geometry::Shape const& shape)
{
    return memory::succeeds([&] { return writeShape(fileName, shape); });
}

bool ShapeNodeIOHelper::write(QString const& fileName, geometry::ShapeNode* node)
{
    return memory::succeeds([&] { return writeTree(fileName, node); });
}
