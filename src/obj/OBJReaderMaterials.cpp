#include "framework/FileAccess.h"
#include "framework/ImageClaims.h"
#include "obj/OBJLineReader.h"
#include "obj/OBJNumbers.h"
#include "obj/OBJReader.h"
#include "obj/OBJReaderLists.h"
#include "obj/OBJTextureCache.h"

#include <QDebug>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QTextStream>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int flatTextureSide = 3;
constexpr qsizetype entriesPerFace = 4; // a, b, c, -1

bool isTextured(std::pair<QString const, OBJReader::ObjMaterial> const& entry)
{
    return !entry.second.texture.isNull();
}

// Also the names in an MTL file are relative to the OBJ file, wherever the MTL file lies.
QString pathBeside(QString const& objFileName, QString const& name)
{
    return QFileInfo(objFileName).dir().absoluteFilePath(name);
}

// Of a name in the OBJ or MTL file that is longer, or has a part that is longer, no file system has a file.
constexpr qsizetype longestPath = 4096;
constexpr qsizetype longestPart = 255;

bool mayBePath(QString const& name)
{
    qsizetype const lastPart = 1 + std::max(name.lastIndexOf(u'/'), name.lastIndexOf(u'\\'));
    return name.size() <= longestPath && name.size() - lastPart <= longestPart;
}

// A number that no int holds becomes one that no colour holds, as a conversion of it would be undefined.
int toColorComponent(float value)
{
    constexpr float beyond = 1 << 16;
    float const scaled = value * 255;
    return std::abs(scaled) < beyond ? static_cast<int>(scaled) : -1;
}

QImage makeFlatTexture(QColor const& color)
{
    QImage image(flatTextureSide, flatTextureSide, QImage::Format_ARGB32);
    image.fill(color);
    return image;
}

OBJTexture decode(QString const& path)
{
    if (images::claimsTooMuch(path)) {
        // What the decoder would say once it has allocated what is claimed.
        return {{}, OBJReader::TextureProcessingFailed, QImageReader::tr("Unable to read image data")};
    }
    QImageReader reader(path, {});
    QImage const image = reader.read();
    if (!image.isNull())
        return {image, OBJReader::NoError, {}};
    if (reader.error() == QImageReader::InvalidDataError)
        return {{}, OBJReader::TextureProcessingFailed, reader.errorString()};
    // A second chance whose outcome does not count.
    QImage scratch;
    scratch.load(path, "JPG");
    return {{}, OBJReader::CannotOpenTextureFile, {}};
}

} // namespace

std::vector<QString> OBJReader::reconstructMTLFileNames(QList<QString> const& tokens) const
{
    std::vector<QString> names;
    QString candidate;
    for (qsizetype i = 1; i < tokens.size(); ++i) {
        candidate += tokens[i];
        if (!mayBePath(candidate))
            break;
        if (files::mayBeNamed(pathBeside(fileName, candidate))) {
            names.push_back(candidate);
            candidate.clear();
        } else {
            candidate += u' ';
        }
    }
    return names;
}

OBJReader::Error OBJReader::handleMTL(QString const& mtlFileName)
{
    OBJTextureCache textures;
    LibraryReading library{textures};
    return handleMTL(mtlFileName, library);
}

OBJReader::Error OBJReader::handleMTL(QString const& mtlFileName, LibraryReading& library)
{
    QString const given = pathBeside(fileName, mtlFileName);
    QString const path = QDir::cleanPath(given);
    if (!files::mayBeNamed(given)) {
        if (mtlFileName != "NONE"_L1)
            qWarning() << "OBJReader::handleMTL"
                       << "mtl file" << path << "not found";
        return NoMaterialFileName;
    }
    QFile file(given);
    if (!file.open(QIODevice::ReadOnly)) {
        qWarning() << "OBJReader::handleMTL"
                   << "Cannot open mtl file for read only: " << path;
        return CannotOpenMaterialFile;
    }
    materials.clear();
    QTextStream stream(&file);
    OBJLineReader reader(stream);
    while (!reader.atEnd()) {
        if (!reader.readLine())
            return InvalidMaterialFile;
        OBJLineReader::Tokens const& tokens = reader.splitLine();
        if (tokens.empty())
            continue;
        if (Error const result = readMTLLine(tokens, library); result != NoError)
            return result;
    }
    return NoError;
}

OBJReader::Error OBJReader::readMTLLine(Tokens const& tokens, LibraryReading& library)
{
    QString const keyword = tokens.front().toString();
    if (keyword.contains("newmtl"_L1)) {
        library.currentMaterial = parseMaterialName(tokens);
        materials.try_emplace(library.currentMaterial);
    } else if (keyword.contains("map"_L1)) {
        return readTextureStatement(tokens, library);
    } else if (keyword == "Kd"_L1) {
        materials[library.currentMaterial].diffuseColor = readDiffuseColor(tokens, library.hasWarned);
    }
    return NoError;
}

OBJReader::Error OBJReader::readTextureStatement(Tokens const& tokens, LibraryReading& library)
{
    // Of everything after the keyword, options like "-s 1 1 1" included, the file name is made.
    QString const name = parseMaterialName(tokens);
    QImage image;
    if (Error const result = loadTexture(name, image, library.textures); result != NoError)
        return result;
    if (library.currentMaterial.isEmpty())
        return InvalidMaterialFile;
    materials[library.currentMaterial].texture = image;
    return NoError;
}

QColor OBJReader::readDiffuseColor(Tokens const& tokens, bool& hasWarned) const
{
    std::array<int, 3> rgb{};
    for (std::size_t i = 0; i < rgb.size(); ++i)
        if (i + 1 < tokens.size())
            rgb[i] = toColorComponent(toFloatIfConditionValid(tokens[i + 1], error, &hasWarned));
    return QColor(rgb[0], rgb[1], rgb[2], 255);
}

OBJReader::Error OBJReader::loadTexture(QString const& textureFileName, QImage& image,
                                        OBJTextureCache& known) const
{
    QString const given = pathBeside(fileName, textureFileName);
    QString const path = QDir::cleanPath(given);
    if (!files::mayBeNamed(given)) {
        qWarning() << "OBJReader::loadTexture"
                   << "Texture file" << path << "not found";
        return CannotFindTextureFile;
    }
    QString const canonical = QFileInfo(given).canonicalFilePath();
    OBJTexture const* outcome = known.find(canonical);
    if (!outcome)
        outcome = &known.insert(canonical, decode(given));
    if (outcome->error == NoError) {
        image = outcome->image;
    } else if (outcome->error == TextureProcessingFailed) {
        qWarning() << "OBJReader::loadTexture" << outcome->errorText;
    } else {
        qWarning() << "OBJReader::loadTexture"
                   << "Could not read texture file at " << path;
    }
    return outcome->error;
}

void OBJReader::fixMaterials(WorkingLists& lists)
{
    fixNonExistingButUsedMaterials(lists.usage);
    pruneUnusedMaterials(lists.usage);
    if (!isMeshUsingTexturedAndNonTexturedMaterialsAtTheSameTime())
        return;
    lists.completeIndices();
    fixMixedMaterialUsage(lists.textureCoordinates, lists.textureIndices, lists.usage);
}

void OBJReader::fixNonExistingButUsedMaterials(MaterialUsage& usage) const
{
    auto const replacement = std::find_if(materials.begin(), materials.end(), isTextured);
    MaterialUsage fixed;
    for (auto const& [name, faces] : usage) {
        if (materials.contains(name)) {
            fixed.try_emplace(name, faces);
        } else if (replacement != materials.end()) {
            qWarning() << "Corrupt OBJ file detected: Material " << name
                       << " is used but not defined. Replacing it with the first known textured material "
                          "instead. ("
                       << replacement->first << ")";
            // The faces of a second undefined material, or of the replacement itself when it comes later, are
            // left without a material: lists are never merged.
            fixed.try_emplace(replacement->first, faces);
        }
    }
    usage = fixed;
}

void OBJReader::pruneUnusedMaterials(MaterialUsage const& usage)
{
    std::erase_if(materials, [&usage](auto const& entry) { return !usage.contains(entry.first); });
}

bool OBJReader::isMeshUsingTexturedAndNonTexturedMaterialsAtTheSameTime() const
{
    return std::any_of(materials.begin(), materials.end(), isTextured) &&
           !std::all_of(materials.begin(), materials.end(), isTextured);
}

void OBJReader::fixMixedMaterialUsage(QList<QVector2D>& textureCoordinates, QList<int>& textureIndices,
                                      MaterialUsage const& usage)
{
    for (auto& entry : materials) {
        if (isTextured(entry))
            continue;
        entry.second.texture = makeFlatTexture(entry.second.diffuseColor);
        textureCoordinates.append({0.5f, 0.5f});
        auto const center = static_cast<int>(textureCoordinates.size() - 1);
        // at() finds every material: those that are not in the usage have just been pruned.
        for (unsigned int const face : usage.at(entry.first))
            std::fill_n(textureIndices.begin() + entriesPerFace * face, 3, center);
    }
}

OBJReader::Error OBJReader::buildMesh(WorkingLists& lists, std::atomic<bool> const& cancel)
{
    geometry::Mesh const result =
        isTextureSupportRequested() ? makeTexturedMesh(lists) : makeColoredMesh(lists);
    if (result.isNull()) {
        qWarning() << "OBJReader: Unable to load mesh with this TextureSupport flag:" << int(textureSupport);
        return UnableToLoadMeshWithCurrentTextureSupportFlag;
    }
    geometry::Mesh const before = mesh;
    mesh = result;
    if (lists.normals.isEmpty() && !computeNormals(cancel)) {
        mesh = before;
        return cancel ? Cancelled : NoData;
    }
    return error;
}

geometry::Mesh OBJReader::makeTexturedMesh(WorkingLists const& lists) const
{
    if (!lists.textureCoordinates.isEmpty() && !texture.isNull())
        return {lists.positions, lists.positionIndices, lists.normals, lists.textureCoordinates};
    if (textureSupport == TextureOptional)
        return {lists.positions, lists.positionIndices, lists.normals};
    return {};
}

geometry::Mesh OBJReader::makeColoredMesh(WorkingLists& lists)
{
    QList<unsigned int> const colors = determineVertexColorsFromTextureAndUvs(lists.textureCoordinates);
    texture = QImage();
    lists.textureCoordinates.clear();
    if (!colors.isEmpty())
        return {lists.positions, lists.positionIndices, lists.normals, colors};
    if (textureSupport == VertexColorsOptional)
        return {lists.positions, lists.positionIndices, lists.normals};
    return {};
}
