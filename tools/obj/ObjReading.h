#pragma once

#include "obj/MaterialTree.h"
#include "obj/OBJReader.h"

#include <memory>

namespace tool {

struct Inspection;

namespace obj {

/// What stands in an OBJ file, and what the library makes of it.
struct Reading
{
    ObjText text;
    MaterialTree tree;
    /// Has read the file, with its texture where there is one.
    std::unique_ptr<OBJReader> reader;
    /// What the library said about it.
    QStringList log;
};

/// Reads the file. Not, when it cannot be opened.
std::optional<Reading> readFile(QString const& path);

/// Says why the library refuses a file, when it does.
void judge(Reading const& reading, Inspection& inspection);

} // namespace obj
} // namespace tool
