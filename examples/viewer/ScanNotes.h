#pragma once

#include <QStringList>

/// What an STL file's header, marked with two bytes 0xBE, or a PLY file's comment lines say about the scan.
QStringList notesOfScanner(QString const& path);
