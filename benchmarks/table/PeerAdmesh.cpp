#include "table/Contender.h"

extern "C" {
#include <admesh/stl.h>
}

#include <QFile>

using table::Size;
using table::Work;

namespace {

auto read(char const* name)
{
    return [name](QString const& folder) -> Work {
        return [path = QFile::encodeName(folder + u'/' + QLatin1StringView(name))]() -> std::optional<Size> {
            stl_file stl{};
            stl_open(&stl, const_cast<char*>(path.constData()));
            stl_check_facets_exact(&stl);
            stl_generate_shared_vertices(&stl);
            Size const size{stl.stats.shared_vertices, stl.stats.number_of_facets};
            bool const failed = stl_get_error(&stl) != 0;
            stl_close(&stl);
            return failed ? std::nullopt : std::optional(size);
        };
    };
}

} // namespace

int main(int argc, char** argv)
{
    constexpr auto lacks = "normals of vertices";
    return table::run({{"stl-read", read("scan.stl"), lacks},
                       {"stl-read-shuffled", read("shuffled.stl"), lacks},
                       {"stl-read-ascii", read("ascii.stl"), lacks}},
                      argc, argv);
}
