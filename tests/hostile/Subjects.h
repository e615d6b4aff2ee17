#pragma once

#include "hostile/Outcome.h"

#include <QIODevice>

#include <atomic>
#include <functional>
#include <vector>

namespace hostile {

/// One way of reading one format, and a small good file for it.
struct Subject
{
    using FromBytes = std::function<Outcome(QByteArray const&, std::atomic<bool> const&)>;
    using FromDevice = std::function<Outcome(QIODevice&, std::atomic<bool> const&)>;
    using FromFile = std::function<Outcome(QString const&, std::atomic<bool> const&)>;

    QByteArray name;
    QByteArray suffix;
    QByteArray seed;
    /// The file that a device is like which gave these bytes of the seed and then nothing more. Not for all.
    std::function<QByteArray(QByteArray const&)> equivalent = {};
    bool isText = false;
    /// Each may be missing.
    FromBytes fromBytes = {};
    FromDevice fromDevice = {};
    FromFile fromFile = {};
};

/// All readers of the library. Names are unique; the first part is the format.
std::vector<Subject> const& subjects();
/// Those whose name begins with `format`.
std::vector<Subject> subjectsOf(QByteArrayView format);

/// How the file at `path` is read in one of the formats "stl", "ply", "obj-textured" (texture kept) and
/// "obj-colored". Its material and texture files are those beside it, however the bytes come.
Subject subjectFor(QByteArray const& format, QString const& path);

/// Reads `bytes` in the most direct way that the subject has.
Outcome read(Subject const& subject, QByteArray const& bytes);
/// The path of a new file of these bytes, with the subject's suffix, which the next call replaces.
QString fileOf(Subject const& subject, QByteArray const& bytes);

} // namespace hostile
