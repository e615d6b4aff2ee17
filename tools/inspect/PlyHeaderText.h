#pragma once

#include <QIODevice>
#include <QStringList>

#include <vector>

namespace tool::ply {

/// A line "property" of a header.
struct Property
{
    QString name;
    QString type;
    /// Of a list: the type of its count. Empty for a single value.
    QString countType;

    bool isList() const { return !countType.isEmpty(); }
};

/// A line "element" of a header, with the properties behind it.
struct Element
{
    QString name;
    qint64 count = 0;
    std::vector<Property> properties;
};

/// What stands in a header, whether or not the library reads such files.
struct HeaderText
{
    /// The first line that is neither empty nor a comment.
    QString firstLine;
    QString format;
    std::vector<Element> elements;
    /// Without the word "comment", in order; texture and metadata lines too.
    QStringList comments;
    /// The last name of a texture; empty without one.
    QString textureName;
    /// The first line that no header has; empty when there is none.
    QString strangeLine;
    /// Where the body begins; -1 when the header does not end.
    qint64 bodyStart = -1;

    bool hasMagic() const { return firstLine.compare(QLatin1String("ply"), Qt::CaseInsensitive) == 0; }
    /// Null when there is none of this name.
    Element const* element(QLatin1StringView name) const;
};

/// Reads the header's lines from where `in` stands.
HeaderText readHeaderText(QIODevice& in);

/// Bytes of a single value as the library reads it: 0 for types that it reads as no bytes.
int bytesOf(QString const& type);

/// Bytes of the elements that the library reads, if every face is a triangle.
qint64 announcedBytes(HeaderText const& header);

/// What becomes of a property: "position", "normal", "colour", ... or why it is skipped.
QLatin1StringView useOf(Element const& element, Property const& property);

} // namespace tool::ply
