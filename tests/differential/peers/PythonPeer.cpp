#include "differential/peers/PythonPeer.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace peers {

namespace {

constexpr int longestRun = 120 * 1000; // ms; to import the packages alone takes seconds on a busy machine

// Others than the first of the path may have Debian's packages.
QString findInterpreter(QString const& package)
{
    for (QString const& candidate : {QStandardPaths::findExecutable(u"python3"_s), u"/usr/bin/python3"_s}) {
        QProcess process;
        process.start(candidate, {u"-c"_s, u"import numpy, "_s + package});
        if (process.waitForFinished(longestRun) && process.exitStatus() == QProcess::NormalExit &&
            process.exitCode() == 0)
            return candidate;
    }
    return {};
}

QJsonArray run(QString const& interpreter, QJsonArray const& jobs)
{
    QTemporaryDir const folder;
    QFile jobFile(folder.filePath(u"jobs.json"_s));
    QFile resultFile(folder.filePath(u"results.json"_s));
    if (!jobFile.open(QIODevice::WriteOnly))
        return {};
    jobFile.write(QJsonDocument(jobs).toJson());
    jobFile.close();
    QProcess process;
    process.start(interpreter, {QStringLiteral(PYTHON_PEER), jobFile.fileName(), resultFile.fileName()});
    if (!process.waitForFinished(longestRun) || !resultFile.open(QIODevice::ReadOnly))
        return {};
    return QJsonDocument::fromJson(resultFile.readAll()).array();
}

QVector3D vectorOf(QJsonValue const& value)
{
    QJsonArray const array = value.toArray();
    return {static_cast<float>(array[0].toDouble()), static_cast<float>(array[1].toDouble()),
            static_cast<float>(array[2].toDouble())};
}

unsigned int colorOf(QJsonValue const& value)
{
    QJsonArray const channels = value.toArray();
    unsigned int color = 0;
    for (int i = 0; i < channels.size(); ++i)
        color |= static_cast<unsigned int>(channels[i].toInt()) << 8 * i;
    return color;
}

std::optional<PeerMesh> meshOf(QJsonValue const& value)
{
    if (!value.isObject())
        return {};
    PeerMesh mesh;
    for (QJsonValue const& vertex : value[u"vertices"_s].toArray())
        mesh.vertices << vectorOf(vertex);
    for (QJsonValue const& normal : value[u"normals"_s].toArray())
        mesh.normals << vectorOf(normal);
    for (QJsonValue const& color : value[u"colors"_s].toArray())
        mesh.colors << colorOf(color);
    for (QJsonValue const& triangle : value[u"triangles"_s].toArray())
        mesh.triangles << std::array{triangle[0].toInt(), triangle[1].toInt(), triangle[2].toInt()};
    return mesh;
}

QJsonArray arrayOf(QList<QVector3D> const& vectors)
{
    QJsonArray array;
    for (QVector3D const& v : vectors)
        array << QJsonArray{double(v.x()), double(v.y()), double(v.z())};
    return array;
}

QJsonObject objectOf(geometry::Mesh const& mesh)
{
    QJsonObject object{{u"vertices"_s, arrayOf(mesh.vertices)}};
    QJsonArray triangles;
    for (qsizetype i = 0; i + 3 < mesh.indices.size(); i += 4)
        triangles << QJsonArray{mesh.indices[i], mesh.indices[i + 1], mesh.indices[i + 2]};
    object[u"triangles"_s] = triangles;
    if (!mesh.normals.isEmpty())
        object[u"normals"_s] = arrayOf(mesh.normals);
    QJsonArray colors;
    for (unsigned int const color : mesh.colors)
        colors << QJsonArray{int(color & 0xFF), int(color >> 8 & 0xFF), int(color >> 16 & 0xFF),
                             int(color >> 24)};
    if (!colors.isEmpty())
        object[u"colors"_s] = colors;
    return object;
}

} // namespace

PythonPeer::PythonPeer(QString program_)
    : program(std::move(program_))
    , interpreter(findInterpreter(program))
{}

QList<std::optional<PeerMesh>> PythonPeer::load(QStringList const& paths) const
{
    QJsonArray jobs;
    for (QString const& path : paths)
        jobs << QJsonObject{{u"program"_s, program}, {u"verb"_s, u"load"_s}, {u"path"_s, path}};
    QList<std::optional<PeerMesh>> meshes;
    for (QJsonValue const& result : run(interpreter, jobs))
        meshes << meshOf(result);
    meshes.resize(paths.size());
    return meshes;
}

bool PythonPeer::save(QList<geometry::Mesh> const& meshes, QStringList const& paths,
                      QString const& precision) const
{
    QJsonArray jobs;
    for (qsizetype i = 0; i < paths.size(); ++i)
        jobs << QJsonObject{{u"program"_s, program},
                            {u"verb"_s, u"save"_s},
                            {u"path"_s, paths[i]},
                            {u"binary"_s, true},
                            {u"precision"_s, precision},
                            {u"mesh"_s, objectOf(meshes[i])},
                            {u"format"_s, QFileInfo(paths[i]).suffix()}};
    QJsonArray const results = run(interpreter, jobs);
    bool isSaved = results.size() == paths.size();
    for (QJsonValue const& result : results)
        isSaved = isSaved && result.toBool();
    return isSaved;
}

} // namespace peers
