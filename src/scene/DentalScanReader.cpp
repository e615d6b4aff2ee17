#include "scene/DentalScanReader.h"

#include "framework/MemoryGuard.h"
#include "obj/OBJReader.h"
#include "ply/PLYReader.h"
#include "stl/STLReader.h"

#include <QDebug>

#include <array>

using namespace Qt::StringLiterals;

namespace {

struct Format
{
    QLatin1StringView ending;
    std::unique_ptr<SurfaceReader> (*makeReader)();
};

std::unique_ptr<SurfaceReader> makeSTLReader()
{
    return std::make_unique<STLReader>(nullptr, false, QString());
}

std::unique_ptr<SurfaceReader> makePLYReader()
{
    return std::make_unique<PLYReader>(PLYReader::MeshMode);
}

std::unique_ptr<SurfaceReader> makeOBJReader()
{
    return std::make_unique<OBJReader>(false);
}

constexpr std::array formats = {Format{QLatin1StringView(".stl"), makeSTLReader},
                                Format{QLatin1StringView(".ply"), makePLYReader},
                                Format{QLatin1StringView(".obj"), makeOBJReader}};

} // namespace

std::shared_ptr<DentalScan> DentalScanReader::readDentalScan(QString const& fileName)
{
    return memory::resultOr(std::shared_ptr<DentalScan>(), [&]() -> std::shared_ptr<DentalScan> {
        for (Format const& format : formats) {
            if (!fileName.endsWith(format.ending))
                continue;
            auto const reader = format.makeReader();
            reader->setFileName(fileName);
            return readDentalScanWithSurfaceReader(*reader);
        }
        qWarning() << "DentalScanReader : given file is not an .stl, .ply or .obj file.";
        return nullptr;
    });
}

std::shared_ptr<DentalScan> DentalScanReader::readDentalScanWithSurfaceReader(SurfaceReader& reader)
{
    std::atomic<bool> const cancel = false;
    if (!reader.read(cancel)) {
        qWarning() << "DentalScanReader : could not read dental scan from disk.";
        return nullptr;
    }
    auto scan = std::make_shared<DentalScan>();
    scan->setMesh(reader.getMesh());
    scan->setObjectTransform(reader.getTransform());
    return scan;
}
