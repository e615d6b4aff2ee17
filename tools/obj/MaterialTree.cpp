#include "obj/MaterialTree.h"

#include "obj/TextLines.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <set>

using namespace Qt::StringLiterals;

namespace tool::obj {

namespace {

// How many words an option of an image line takes; of "-o", "-s" and "-t" the numbers that follow, at most.
struct Option
{
    QLatin1StringView name;
    int words;
    bool areNumbers = false;
};
constexpr std::array options = {
    Option{"-blendu"_L1, 1},  Option{"-blendv"_L1, 1},  Option{"-boost"_L1, 1},   Option{"-bm"_L1, 1},
    Option{"-cc"_L1, 1},      Option{"-clamp"_L1, 1},   Option{"-imfchan"_L1, 1}, Option{"-mm"_L1, 2},
    Option{"-o"_L1, 3, true}, Option{"-s"_L1, 3, true}, Option{"-t"_L1, 3, true}, Option{"-texres"_L1, 1},
    Option{"-type"_L1, 1},
};

Option const* optionNamed(QString const& word)
{
    auto const* const row = std::find_if(options.begin(), options.end(),
                                         [&](Option const& option) { return option.name == word; });
    return row == options.end() ? nullptr : row;
}

bool isNumber(QString const& word)
{
    bool isOk = false;
    word.toFloat(&isOk);
    return isOk;
}

// How many of the words behind the keyword are options.
qsizetype countOptionWords(QStringList const& words)
{
    qsizetype next = 0;
    while (next < words.size()) {
        Option const* const option = optionNamed(words[next]);
        if (option == nullptr)
            return next;
        ++next;
        for (int i = 0; i < option->words && next < words.size(); ++i, ++next) {
            if (option->areNumbers && !isNumber(words[next]))
                break;
        }
    }
    return next;
}

ImageLine imageLineOf(QString const& objPath, qint64 line, QStringList const& words)
{
    QStringList const behind = words.mid(1);
    qsizetype const optionWords = countOptionWords(behind);
    ImageLine image;
    image.line = line;
    image.keyword = words.first();
    image.given = restOf(words);
    image.options = behind.first(optionWords).join(u' ');
    image.name = behind.sliced(optionWords).join(u' ');
    image.image = imageFileAt(pathBeside(objPath, image.given));
    return image;
}

int channelOf(QStringList const& words, qsizetype place)
{
    return place < words.size() ? static_cast<int>(std::clamp(words[place].toFloat(), 0.0f, 1.0f) * 255) : 0;
}

/// Reads one MTL file by the rules of the library.
class LibraryReader
{
public:
    LibraryReader(QString const& objPath_, MtlLibrary& library_)
        : objPath(objPath_)
        , library(library_)
    {}

    void read(QIODevice& file)
    {
        TextLines lines(file);
        while (lines.next())
            readLine(lines);
    }

private:
    void readLine(TextLines const& lines)
    {
        QByteArrayView const keyword = lines.tokens().front();
        if (keyword.contains("newmtl"))
            current = placeOf(restOf(lines.words()), lines.number());
        else if (keyword.contains("map"))
            readImage(lines);
        else if (keyword == "Kd")
            readDiffuse(lines);
    }

    void readImage(TextLines const& lines)
    {
        ImageLine const image = imageLineOf(objPath, lines.number(), lines.words());
        MtlMaterial& material = currentMaterial(lines.number());
        bool const isLoaded = image.image.isImage() && !image.image.isOverLimit();
        if (library.stopsAt == 0 && (!isLoaded || material.name.isEmpty()))
            library.stopsAt = lines.number();
        material.images.push_back(image);
    }

    void readDiffuse(TextLines const& lines)
    {
        QStringList const words = lines.words();
        currentMaterial(lines.number()).diffuse =
            QColor(channelOf(words, 1), channelOf(words, 2), channelOf(words, 3));
    }

    // What stands before the first "newmtl" is of a material without a name.
    MtlMaterial& currentMaterial(qint64 line)
    {
        if (!current)
            current = placeOf({}, line);
        return library.materials[*current];
    }

    std::size_t placeOf(QString const& name, qint64 line)
    {
        auto const [place, isNew] = places.try_emplace(name, library.materials.size());
        if (isNew)
            library.materials.push_back({name, line, {}, {}, 0});
        return place->second;
    }

    QString const& objPath;
    MtlLibrary& library;
    std::map<QString, std::size_t> places;
    std::optional<std::size_t> current;
};

// The names of files that exist, put together from words as the library does it.
QStringList foundNames(QString const& objPath, QStringList const& words)
{
    QStringList names;
    QString candidate;
    for (QString const& word : words) {
        candidate += word;
        if (QFileInfo::exists(pathBeside(objPath, candidate))) {
            names << candidate;
            candidate.clear();
        } else {
            candidate += u' ';
        }
    }
    return names;
}

MtlLibrary readLibrary(QString const& objPath, qint64 line, QString const& name, ObjText const& text)
{
    MtlLibrary library{line, name, false, {}, 0};
    QFile file(pathBeside(objPath, name));
    library.isFound = QFileInfo(file.fileName()).isFile() && file.open(QIODevice::ReadOnly);
    if (library.isFound)
        LibraryReader(objPath, library).read(file);
    for (MtlMaterial& material : library.materials)
        material.faces = text.materials.facesOf(material.name);
    return library;
}

void addUndefined(ObjText const& text, MaterialTree& tree)
{
    std::set<QString> defined;
    for (MtlLibrary const& library : tree.libraries) {
        for (MtlMaterial const& material : library.materials)
            defined.insert(material.name);
    }
    for (Names::Entry const& used : text.materials.all()) {
        if (used.faces > 0 && !defined.contains(used.name))
            tree.undefined.push_back(used);
    }
}

} // namespace

QString pathBeside(QString const& objPath, QString const& name)
{
    return QFileInfo(objPath).dir().absoluteFilePath(name);
}

MaterialTree materialTreeOf(QString const& objPath, ObjText const& text)
{
    MaterialTree tree;
    for (LibraryLine const& row : text.libraries) {
        QStringList names = foundNames(objPath, row.words);
        if (names.size() > 1 && tree.lineOfSeveral == 0)
            tree.lineOfSeveral = row.line;
        if (names.isEmpty())
            names << row.words.join(u' ');
        for (QString const& name : names)
            tree.libraries.push_back(readLibrary(objPath, row.line, name, text));
    }
    addUndefined(text, tree);
    return tree;
}

} // namespace tool::obj
