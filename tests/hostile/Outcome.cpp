#include "hostile/Outcome.h"

namespace hostile {

namespace {

bool hasOneEach(qsizetype count, qsizetype vertices)
{
    return count == 0 || count == vertices;
}

bool areTriangles(geometry::Mesh const& mesh)
{
    qsizetype const vertices = mesh.vertices.size();
    for (qsizetype i = 0; i < mesh.indices.size(); ++i) {
        int const index = mesh.indices[i];
        if (i % 4 == 3 ? index != -1 : index < 0 || index >= vertices)
            return false;
    }
    return mesh.indices.size() % 4 == 0;
}

} // namespace

Inspection& Inspection::reader(geometry::Mesh const& mesh)
{
    return require(hasOneEach(mesh.normals.size(), mesh.vertices.size()), "normals").objReader(mesh);
}

Inspection& Inspection::objReader(geometry::Mesh const& mesh)
{
    qsizetype const vertices = mesh.vertices.size();
    require(areTriangles(mesh), "indices");
    require(mesh.normals.size() <= vertices, "normals");
    require(hasOneEach(mesh.colors.size(), vertices), "colours");
    require(hasOneEach(mesh.textureCoordinates.size(), vertices), "texture coordinates");
    return raw(mesh);
}

Inspection& Inspection::raw(geometry::Mesh const& mesh)
{
    return list(mesh.vertices)
        .list(mesh.normals)
        .list(mesh.indices)
        .list(mesh.colors)
        .list(mesh.textureCoordinates);
}

Inspection& Inspection::material(geometry::Material const& material)
{
    for (QColor const& color :
         {material.ambientColor, material.diffuseColor, material.specularColor, material.emissiveColor})
        number(color.isValid() ? qint64(quint64(color.rgba64())) : -1);
    for (float const value :
         {material.ambientIntensity, material.diffuseIntensity, material.specularIntensity,
          material.emissiveIntensity, material.shininess, material.transparency, material.baseReflectance})
        array(&value, 1);
    return number(material.detailNoise ? 1 : 0);
}

Inspection& Inspection::image(QImage const& image)
{
    number(image.width()).number(image.height());
    QImage const pixels = image.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < pixels.height(); ++y)
        array(pixels.constScanLine(y), qint64(4) * pixels.width());
    return *this;
}

Inspection& Inspection::number(qint64 value)
{
    hash.addData(QByteArrayView(reinterpret_cast<char const*>(&value), sizeof(value)));
    return *this;
}

Inspection& Inspection::bytes(QByteArray const& value)
{
    return list(value);
}

Inspection& Inspection::require(bool condition, char const* what)
{
    if (!condition && fault.isEmpty())
        fault = QString::fromLatin1(what);
    return *this;
}

} // namespace hostile
