#include "RandomPly.h"

#include "support/PlyFiles.h"

#include <algorithm>
#include <random>

namespace ply_random {

namespace {

struct Field
{
    QByteArray type;
    QByteArray name;
};

// Standard distributions differ between libraries; this does not.
class Random
{
public:
    explicit Random(quint32 seed)
        : engine(seed)
    {}

    int below(int limit) { return static_cast<int>(engine() % static_cast<quint32>(limit)); }
    bool once(int in) { return below(in) == 0; }
    quint32 bits() { return static_cast<quint32>(engine()); }

    template <typename Value>
    Value of(QList<Value> const& values)
    {
        return values[below(static_cast<int>(values.size()))];
    }

    template <typename Value>
    void shuffle(QList<Value>& values)
    {
        for (int i = static_cast<int>(values.size()) - 1; i > 0; --i)
            values.swapItemsAt(i, below(i + 1));
    }

private:
    std::mt19937 engine;
};

QByteArrayList const numberTypes = {"uchar", "short", "int", "uint", "float", "double"};
QByteArrayList const anyType = {"char",  "uchar",  "short",   "ushort",  "int", "uint",
                                "float", "double", "float32", "float64", "what"};

class Maker
{
public:
    Maker(quint32 seed, int mostRows)
        : random(seed)
        , bigEndian(random.once(2))
        , body(bigEndian)
        , vertices(random.once(20) ? 0 : 1 + random.below(mostRows))
        , faces(random.once(20) ? 0 : 1 + random.below(mostRows))
    {}

    File make()
    {
        chooseReading();
        chooseVertexFields();
        chooseFaceFields();
        if (random.once(3))
            chooseMaterialFields();
        writeBody();
        result.header = header();
        result.body = body.bytes;
        return result;
    }

private:
    void chooseReading()
    {
        result.asCloud = random.once(4);
        result.hasFaceColors = random.once(4);
        result.textureSupport = random.below(4);
        if (!random.once(3)) {
            result.texture = QImage(3, 2, QImage::Format_ARGB32);
            for (int pixel = 0; pixel < 6; ++pixel)
                result.texture.setPixel(pixel % 3, pixel / 3, random.bits());
        }
    }

    // All of them in one type, in their order, or each as it comes.
    void add(QList<Field>& fields, QByteArrayList const& names, QByteArray const& usualType)
    {
        bool const isOdd = random.once(8);
        for (QByteArray const& name : names)
            if (!isOdd || !random.once(4))
                fields.append({isOdd ? random.of(numberTypes) : usualType, name});
    }

    void addOddities(QList<Field>& fields)
    {
        if (random.once(8))
            fields.append({random.of(anyType), "confidence"});
        if (random.once(12))
            fields.append({random.of(numberTypes), "shininess"});
        if (random.once(24))
            fields.append(random.of(fields));
        if (random.once(40))
            fields.append({random.of(anyType), random.of(QByteArrayList{"x", "ny", "blue", "v"})});
        if (random.once(6))
            random.shuffle(fields);
    }

    void chooseVertexFields()
    {
        QByteArray const real = random.once(5) ? random.of(numberTypes) : QByteArray("float");
        add(vertexFields, {"x", "y", "z"}, real);
        if (random.once(2))
            add(vertexFields, {"nx", "ny", "nz"}, real);
        if (random.once(2))
            add(vertexFields, {"red", "green", "blue"}, "uchar");
        if (random.once(4))
            add(vertexFields, {"alpha"}, "uchar");
        if (random.once(3))
            add(vertexFields, {"u", "v"}, real);
        if (!vertexFields.isEmpty())
            addOddities(vertexFields);
    }

    void chooseFaceFields()
    {
        bool const isOdd = random.once(6);
        countType = isOdd ? random.of(numberTypes) : QByteArray("uchar");
        indexType = isOdd ? random.of(numberTypes) : QByteArray(random.once(2) ? "int" : "uint");
        if (!random.once(30))
            faceFields.append(Field{{}, "list"});
        if (random.once(40))
            faceFields.append(Field{{}, "list"});
        if (result.hasFaceColors && random.once(2))
            add(faceFields, {"red", "green", "blue", "alpha"}, "uchar");
        if (!faceFields.isEmpty() && random.once(4))
            addOddities(faceFields);
        if (!result.hasFaceColors)
            faceFields.removeIf([](Field const& field) { return field.name == "blue"; });
    }

    void chooseMaterialFields()
    {
        add(materialFields, {"ambient_red", "ambient_green", "ambient_blue"}, "uchar");
        add(materialFields, {"ambient_intensity", "shininess", "transparency"}, "float");
        add(materialFields, {"detail_noise"}, "uchar");
    }

    // Mostly numbers that a file would hold, sometimes any bits: NaN, infinity, subnormals.
    void writeReal(bool isDouble)
    {
        if (random.once(16)) {
            body.u32(random.bits());
            if (isDouble)
                body.u32(random.bits());
        } else if (isDouble) {
            body.f64(random.below(2000) / 999.0);
        } else {
            body.f32(static_cast<float>(random.below(2000)) / 999.0f);
        }
    }

    void writeInteger(QByteArray const& type, int value)
    {
        if (type == "uchar")
            body.u8(value);
        else if (type == "short")
            body.i16(value);
        else if (type == "int" || type == "uint")
            body.i32(value);
        else if (type == "float")
            body.f32(static_cast<float>(value));
        else if (type == "double")
            body.f64(value);
    }

    void writeField(Field const& field)
    {
        if (field.name == "list")
            writeList();
        else if (field.type == "float" || field.type == "float32")
            writeReal(false);
        else if (field.type == "double" || field.type == "float64")
            writeReal(true);
        else
            writeInteger(field.type, static_cast<int>(random.bits()));
    }

    void writeList()
    {
        bool const isFaulty = random.once(16 * faces);
        writeInteger(countType, isFaulty && random.once(2) ? random.below(6) : 3);
        for (int corner = 0; corner < 3; ++corner)
            writeInteger(indexType,
                         isFaulty ? random.below(2 * vertices + 2) - 1 : random.below(std::max(vertices, 1)));
    }

    void writeBody()
    {
        for (int row = 0; row < vertices; ++row)
            for (Field const& field : vertexFields)
                writeField(field);
        for (int row = 0; row < faces; ++row)
            for (Field const& field : faceFields)
                writeField(field);
        for (Field const& field : materialFields)
            writeField(field);
        for (int more = random.once(3) ? random.below(20) : 0; more > 0; --more)
            body.u8(random.below(256));
    }

    QByteArrayList lines(QList<Field> const& fields) const
    {
        QByteArrayList result_;
        for (Field const& field : fields)
            result_ += field.name == "list" ? "property list " + countType + ' ' + indexType + " vertex_index"
                                            : "property " + field.type + ' ' + field.name;
        return result_;
    }

    QByteArray header()
    {
        QByteArrayList all = {"ply",
                              bigEndian ? "format binary_big_endian 1.0" : "format binary_little_endian 1.0"};
        if (!result.texture.isNull())
            all += "comment TextureFile some.png";
        all += QByteArrayList{support::plyCount("vertex", vertices)} + lines(vertexFields);
        all += QByteArrayList{support::plyCount("face", faces)} + lines(faceFields);
        if (!materialFields.isEmpty())
            all += QByteArrayList{"element velquin_material 1"} + lines(materialFields);
        return support::plyLines(all + QByteArrayList{"end_header"});
    }

    Random random;
    bool bigEndian;
    support::PLYBody body;
    int vertices;
    int faces;
    QByteArray countType;
    QByteArray indexType;
    QList<Field> vertexFields;
    QList<Field> faceFields;
    QList<Field> materialFields;
    File result;
};

} // namespace

File file(quint32 seed, int mostRows)
{
    return Maker(seed, mostRows).make();
}

QByteArray firstFile()
{
    using namespace support;
    QByteArrayList const material = {"element velquin_material 1", "property float shininess"};
    return plyHeader(3, plyPosition + plyNormal + plyColor, 1, material) + PLYBody()
                                                                               .f32({1, 2, 3, 0, 0, 1})
                                                                               .u8({1, 2, 3})
                                                                               .f32({2, 2, 3, 0, 0, 1})
                                                                               .u8({4, 5, 6})
                                                                               .f32({1, 3, 3, 0, 0, 1})
                                                                               .u8({7, 8, 9})
                                                                               .triangle(0, 1, 2)
                                                                               .f32(7)
                                                                               .bytes;
}

} // namespace ply_random
