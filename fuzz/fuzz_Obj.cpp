#include "Fuzz.h"
#include "obj/OBJReader.h"

#include <QBuffer>

#include <atomic>

namespace {

using namespace Qt::StringLiterals;

// Images that a material library can name: two sound ones, one with a space in its name, one that is none.
class ObjFolder : public fuzz::ScratchFolder
{
public:
    ObjFolder()
    {
        fuzz::require(image(2, 3).save(path(u"a.png"_s)) && image(5, 1).save(path(u"b c.bmp"_s)) &&
                      image(1, 1).save(path(u"d.png"_s)));
        write(u"broken.png"_s, "no image");
    }

private:
    static QImage image(int width, int height)
    {
        QImage pixels(width, height, QImage::Format_ARGB32);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                pixels.setPixelColor(x, y, QColor(40 * x, 60 * y, 200));
        return pixels;
    }
};

struct Outcome
{
    OBJReader::Error code;
    OBJReader::Error stored;
    geometry::Mesh mesh;
    QImage texture;
    QStringList log;
};

template <typename Source>
Outcome read(OBJReader& reader, Source&& source)
{
    std::atomic<bool> const cancel = false;
    fuzz::silence();
    OBJReader::Error const code = reader.read(std::forward<Source>(source), cancel);
    return {code, reader.getError(), reader.getMesh(), reader.getTexture(), fuzz::messages()};
}

void requireSame(Outcome const& a, Outcome const& b)
{
    fuzz::require(a.code == b.code && a.stored == b.stored && a.texture == b.texture && a.log == b.log);
    fuzz::requireSame(a.mesh, b.mesh);
}

void requireSound(Outcome const& outcome, SurfaceReader::TextureSupport support)
{
    geometry::Mesh mesh = outcome.mesh;
    // Corners without a normal in a file that has normals leave that list short, which nothing rejects.
    if (mesh.normals.size() < mesh.vertices.size())
        mesh.normals.clear();
    fuzz::requireSound(mesh);
    if (outcome.code != OBJReader::NoError)
        return;
    fuzz::require(!mesh.isNull());
    fuzz::require(mesh.textureCoordinates.isEmpty() == outcome.texture.isNull());
    if (support == SurfaceReader::VertexColorsRequired)
        fuzz::require(!mesh.colors.isEmpty());
    if (support == SurfaceReader::TextureRequired)
        fuzz::require(!mesh.textureCoordinates.isEmpty());
}

// White space that is not ASCII before a line sends it through the tokens and does not change what it says.
// Like the text itself never null: no bytes at all are another matter than an empty file.
QByteArray withoutPlainLines(QByteArray const& text)
{
    QByteArrayList lines = text.split('\n');
    for (qsizetype i = 0; i < lines.size(); ++i) {
        QByteArray const trimmed = lines[i].trimmed();
        bool const isUtf8 = lines[i].isValidUtf8();
        // Half a character at the end of the file counts as UTF-8, which a space in Latin-1 would spoil.
        bool const endsHalfway = !isUtf8 && i + 1 == lines.size();
        if ((trimmed.startsWith('v') || trimmed.startsWith('f')) && !endsHalfway)
            lines[i].prepend(isUtf8 ? "\xe2\x80\x83" : "\xa0");
    }
    return "" + lines.join('\n');
}

} // namespace

// A decision on the texture policy, then an OBJ file, then, behind a line "%%", the library m.mtl beside it.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    static ObjFolder const folder;
    fuzz::Choices choices(fuzz::bytesOf(data, size));
    auto const support = SurfaceReader::TextureSupport(choices.below(4));
    QByteArray text = choices.rest();
    if (text.isNull())
        text = "";
    constexpr QByteArrayView mark = "\n%%\n";
    qsizetype const end = text.indexOf(mark);
    folder.write(u"m.mtl"_s, end < 0 ? QByteArray() : text.sliced(end + mark.size()));
    if (end >= 0)
        text.truncate(end);

    auto const makeReader = [&](OBJReader& reader) -> OBJReader& {
        reader.setFileName(folder.path(u"o.obj"_s));
        reader.setTextureSupport(support);
        return reader;
    };
    OBJReader first;
    OBJReader second;
    OBJReader plain;
    Outcome const outcome = read(makeReader(first), text);
    requireSound(outcome, support);
    QBuffer device(&text);
    requireSame(outcome, read(makeReader(second), &device));
    requireSame(outcome, read(makeReader(plain), withoutPlainLines(text)));
    // A reader that has read before reads the same once more.
    Outcome const again = read(first, text);
    fuzz::require(again.code == outcome.code && again.log == outcome.log);
    fuzz::requireSame(again.mesh, outcome.mesh);
    return 0;
}
