#include "volume/CellKinds.h"

#include "Text.h"

#include <algorithm>
#include <array>
#include <span>

namespace tool::volume {

namespace {

constexpr QLatin1StringView points(QT_TRANSLATE_NOOP("Text", "points"));
constexpr QLatin1StringView lines(QT_TRANSLATE_NOOP("Text", "lines"));
constexpr QLatin1StringView triangles(QT_TRANSLATE_NOOP("Text", "triangles"));
constexpr QLatin1StringView quadrangles(QT_TRANSLATE_NOOP("Text", "quadrangles"));
constexpr auto tetrahedra = CellKind::tetrahedra;
constexpr QLatin1StringView hexahedra(QT_TRANSLATE_NOOP("Text", "hexahedra"));
constexpr QLatin1StringView prisms(QT_TRANSLATE_NOOP("Text", "prisms"));
constexpr QLatin1StringView pyramids(QT_TRANSLATE_NOOP("Text", "pyramids"));
constexpr QLatin1StringView polygons(QT_TRANSLATE_NOOP("Text", "polygons"));
constexpr QLatin1StringView polyhedra(QT_TRANSLATE_NOOP("Text", "polyhedra"));

constexpr std::array gmshKinds = {
    CellKind{1, 1, 2, lines},        CellKind{2, 2, 3, triangles},    CellKind{3, 2, 4, quadrangles},
    CellKind{4, 3, 4, tetrahedra},   CellKind{5, 3, 8, hexahedra},    CellKind{6, 3, 6, prisms},
    CellKind{7, 3, 5, pyramids},     CellKind{8, 1, 3, lines},        CellKind{9, 2, 6, triangles},
    CellKind{10, 2, 9, quadrangles}, CellKind{11, 3, 10, tetrahedra}, CellKind{12, 3, 27, hexahedra},
    CellKind{13, 3, 18, prisms},     CellKind{14, 3, 14, pyramids},   CellKind{15, 0, 1, points},
    CellKind{16, 2, 8, quadrangles}, CellKind{17, 3, 20, hexahedra},  CellKind{18, 3, 15, prisms},
    CellKind{19, 3, 13, pyramids},   CellKind{20, 2, 9, triangles},   CellKind{21, 2, 10, triangles},
    CellKind{22, 2, 12, triangles},  CellKind{23, 2, 15, triangles},  CellKind{24, 2, 15, triangles},
    CellKind{25, 2, 21, triangles},  CellKind{26, 1, 4, lines},       CellKind{27, 1, 5, lines},
    CellKind{28, 1, 6, lines},       CellKind{29, 3, 20, tetrahedra}, CellKind{30, 3, 35, tetrahedra},
    CellKind{31, 3, 56, tetrahedra},
};

constexpr std::array vtkKinds = {
    CellKind{1, 0, 1, points},       CellKind{2, 0, 0, points},       CellKind{3, 1, 2, lines},
    CellKind{4, 1, 0, lines},        CellKind{5, 2, 3, triangles},    CellKind{6, 2, 0, triangles},
    CellKind{7, 2, 0, polygons},     CellKind{8, 2, 4, quadrangles},  CellKind{9, 2, 4, quadrangles},
    CellKind{10, 3, 4, tetrahedra},  CellKind{11, 3, 8, hexahedra},   CellKind{12, 3, 8, hexahedra},
    CellKind{13, 3, 6, prisms},      CellKind{14, 3, 5, pyramids},    CellKind{15, 3, 10, prisms},
    CellKind{16, 3, 12, prisms},     CellKind{21, 1, 3, lines},       CellKind{22, 2, 6, triangles},
    CellKind{23, 2, 8, quadrangles}, CellKind{24, 3, 10, tetrahedra}, CellKind{25, 3, 20, hexahedra},
    CellKind{26, 3, 15, prisms},     CellKind{27, 3, 13, pyramids},   CellKind{28, 2, 9, quadrangles},
    CellKind{29, 3, 27, hexahedra},  CellKind{34, 2, 7, triangles},   CellKind{42, 3, 0, polyhedra},
    CellKind{68, 1, 0, lines},       CellKind{69, 2, 0, triangles},   CellKind{70, 2, 0, quadrangles},
    CellKind{71, 3, 0, tetrahedra},  CellKind{72, 3, 0, hexahedra},   CellKind{73, 3, 0, prisms},
    CellKind{74, 3, 0, pyramids},
};

CellKind const* find(std::span<CellKind const> kinds, qint64 code)
{
    auto const row =
        std::find_if(kinds.begin(), kinds.end(), [code](CellKind const& kind) { return kind.code == code; });
    return row == kinds.end() ? nullptr : &*row;
}

} // namespace

CellKind const* gmshKind(qint64 code)
{
    return find(gmshKinds, code);
}

CellKind const* vtkKind(qint64 code)
{
    return find(vtkKinds, code);
}

} // namespace tool::volume
