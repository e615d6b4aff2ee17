#include "obj/MaterialTree.h"

#include "Text.h"
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
    Option{"-blendu"_L1, 1}, Option{"-blendv"_L1, 1},  Option{"-boost"_L1, 1},      Option{"-bm"_L1, 1},
    Option{"-cc"_L1, 1},     Option{"-clamp"_L1, 1},   Option{"-colorspace"_L1, 1}, Option{"-imfchan"_L1, 1},
    Option{"-mm"_L1, 2},     Option{"-o"_L1, 3, true}, Option{"-s"_L1, 3, true},    Option{"-t"_L1, 3, true},
    Option{"-texres"_L1, 1}, Option{"-type"_L1, 1},
};

// What no table knows, "-blur", has one word.
constexpr Option unknownOption = {{}, 1};

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

bool looksLikeOption(QString const& word)
{
    return word.size() > 1 && word[0] == u'-' && word[1].isLetter() && !isNumber(word) &&
           !word.contains(u'.');
}

// The option at `place`, if one is there. The last word is a name, unless the table knows it.
Option const* optionAt(QStringList const& words, qsizetype place)
{
    if (Option const* const known = optionNamed(words[place]); known != nullptr)
        return known;
    return looksLikeOption(words[place]) && place + 1 < words.size() ? &unknownOption : nullptr;
}

// How many of the words behind the keyword are options. A name is left over for those that are not known.
qsizetype countOptionWords(QStringList const& words)
{
    qsizetype next = 0;
    while (next < words.size()) {
        Option const* const option = optionAt(words, next);
        if (option == nullptr)
            return next;
        qsizetype const end = words.size() - (option == &unknownOption ? 1 : 0);
        ++next;
        for (int i = 0; i < option->words && next < end; ++i, ++next) {
            if (option->areNumbers && !isNumber(words[next]))
                break;
        }
    }
    return next;
}

// How many words of a name there are before options behind it.
qsizetype countNameWords(QStringList const& words)
{
    for (qsizetype i = 1; i < words.size(); ++i) {
        if (optionAt(words, i) != nullptr)
            return i;
    }
    return words.size();
}

ImageLine imageLineOf(QString const& objPath, qint64 line, QStringList const& words)
{
    ImageLine image;
    image.line = line;
    image.keyword = words.first();
    image.given = restOf(words);
    image.name = image.given;
    image.image = imageFileAt(pathBeside(objPath, image.given));
    if (image.image.isFound)
        return image;
    QStringList const behind = words.mid(1);
    qsizetype const optionWords = countOptionWords(behind);
    QStringList const rest = behind.sliced(optionWords);
    qsizetype const nameWords = countNameWords(rest);
    image.options = (behind.first(optionWords) + rest.sliced(nameWords)).join(u' ');
    image.name = rest.first(nameWords).join(u' ');
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
struct NamesOfLine
{
    QStringList found;
    QString rest; // behind the last of them
};

NamesOfLine namesOfLine(QString const& objPath, QStringList const& words)
{
    NamesOfLine names;
    for (QString const& word : words) {
        names.rest += names.rest.isEmpty() ? word : u' ' + word;
        if (QFileInfo::exists(pathBeside(objPath, names.rest))) {
            names.found << names.rest;
            names.rest.clear();
        }
    }
    return names;
}

bool areSeveralLibraries(QStringList const& words)
{
    auto const isLibrary = [](QString const& word) { return word.endsWith(".mtl"_L1, Qt::CaseInsensitive); };
    return std::count_if(words.begin(), words.end(), isLibrary) > 1;
}

MtlLibrary readLibrary(QString const& objPath, qint64 line, QString const& name, ObjText const& text)
{
    MtlLibrary library;
    library.line = line;
    library.name = name;
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

QString severalNamesProblem(MtlLibrary const& library)
{
    return Text::tr("the material library \"%1\" does not exist; all of the line is taken as one name")
        .arg(library.name);
}

MaterialTree materialTreeOf(QString const& objPath, ObjText const& text)
{
    MaterialTree tree;
    for (LibraryLine const& row : text.libraries) {
        NamesOfLine const names = namesOfLine(objPath, row.words);
        if (names.found.size() > 1 && tree.lineOfSeveral == 0)
            tree.lineOfSeveral = row.line;
        for (QString const& name : names.found)
            tree.libraries.push_back(readLibrary(objPath, row.line, name, text));
        if (names.rest.isEmpty() && !names.found.isEmpty())
            continue;
        tree.libraries.push_back(readLibrary(objPath, row.line, names.rest, text));
        tree.libraries.back().isSeveral = names.found.isEmpty() && areSeveralLibraries(row.words);
    }
    addUndefined(text, tree);
    return tree;
}

} // namespace tool::obj
