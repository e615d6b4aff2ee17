#pragma once

#include "CountingFile.h"
#include "inhouse/data/Mesh.h"
#include "inhouse/data/Optional.h"

#include <QString>

#include <atomic>

/// Reads one scan. `run` is for the worker; the other two may be called from any thread at any time.
class ReadTask
{
public:
    explicit ReadTask(QString const& path);

    /// Reads the file. The format follows from the suffix: stl, obj, or else ply.
    void run();
    /// Makes `run` end soon.
    void cancel() { cancelled = true; }
    bool isCancelled() const { return cancelled; }
    /// From 0 to 1.
    double progress() const { return file.progress(); }
    /// Once `run` is done: the surface; empty when it could not be read, or was cancelled.
    utility::Optional<geometry::Mesh> const& result() const { return mesh; }

private:
    QString path;
    CountingFile file;
    std::atomic<bool> cancelled = false;
    utility::Optional<geometry::Mesh> mesh;
};
