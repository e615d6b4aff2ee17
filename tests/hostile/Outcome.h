#pragma once

#include "inhouse/data/Material.h"
#include "inhouse/data/Mesh.h"

#include <QByteArray>
#include <QCryptographicHash>
#include <QImage>
#include <QString>

namespace hostile {

/// What a read came to.
struct Outcome
{
    /// 1 and 0 for success and failure, or the error of a reader that has several.
    int result = -1;
    /// A hash over everything that the reader holds afterwards.
    QByteArray digest;
    /// What is wrong with the result whatever the file was; empty when it is sound.
    QString fault;

    friend bool operator==(Outcome const&, Outcome const&) = default;
};

/// Hashes results, value by value, and looks whether they are sound on the way.
class Inspection
{
public:
    /// Triangles as a, b, c, -1 with indices in range; lists that are empty or as long as the vertices.
    Inspection& reader(geometry::Mesh const& mesh);
    /// The same for OBJ, where corners without a normal leave the list of normals short.
    Inspection& objReader(geometry::Mesh const& mesh);
    /// A mesh as a file holds it: any lists.
    Inspection& raw(geometry::Mesh const& mesh);
    Inspection& material(geometry::Material const& material);
    Inspection& image(QImage const& image);
    Inspection& number(qint64 value);
    Inspection& bytes(QByteArray const& value);
    template <typename List>
    Inspection& list(List const& values)
    {
        number(values.size());
        hash.addData(QByteArrayView(reinterpret_cast<char const*>(values.constData()),
                                    qsizetype(sizeof(typename List::value_type)) * values.size()));
        return *this;
    }
    template <typename Value>
    Inspection& array(Value const* values, qint64 count)
    {
        if (values && count > 0)
            hash.addData(
                QByteArrayView(reinterpret_cast<char const*>(values), qsizetype(sizeof(Value)) * count));
        return number(values ? count : -1);
    }
    Inspection& require(bool condition, char const* what);

    Outcome outcome(int result) const { return {result, hash.result().toHex(), fault}; }

private:
    QCryptographicHash hash{QCryptographicHash::Sha1};
    QString fault;
};

} // namespace hostile
