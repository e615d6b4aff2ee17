#pragma once

#include "convert/MeshFile.h"

#include <QDate>

namespace tool {

/// What the user wants to be different in the file that is written.
struct Changes
{
    bool withAlpha = false;
    std::optional<geometry::Material> material;
    std::optional<QString> scannerName;
    std::optional<QString> scannerSerial;
    std::optional<QString> softwareVersion;
    std::optional<QDate> acquired;
    bool imported = false;

    bool hasMetadata() const;
    bool hasAppearance() const { return withAlpha || material; }
    /// What is not given stays as it was.
    void applyTo(MeshFile& file) const;
};

} // namespace tool
