#include "sample/Anatomy.h"

#include <array>

namespace sample {

namespace {

double mix(double a, double b, double t)
{
    return a + (b - a) * t;
}

constexpr std::array canineCusps = {Cusp{-0.1, 0.0, 1.2, 3.0, 1.3}};
constexpr std::array firstPremolarCusps = {
    Cusp{0.0, 0.42, 1.05, 0.75, 2.1},
    Cusp{-0.1, -0.62, 0.75, 0.55, 0.7},
    Cusp{0.0, -0.22, 1.0, 0.16, -0.2},
};
constexpr std::array secondPremolarCusps = {
    Cusp{0.0, 0.48, 1.0, 0.70, 1.7},
    Cusp{-0.38, -0.55, 0.62, 0.60, 1.1},
    Cusp{0.45, -0.58, 0.55, 0.55, 0.8},
    Cusp{0.0, -0.06, 0.9, 0.16, -0.2},
};
constexpr std::array firstMolarCusps = {
    Cusp{-0.55, 0.55, 0.52, 0.62, 1.5},  Cusp{0.12, 0.60, 0.48, 0.60, 1.4},
    Cusp{0.70, 0.38, 0.38, 0.50, 1.0},   Cusp{-0.48, -0.55, 0.58, 0.62, 1.7},
    Cusp{0.38, -0.55, 0.58, 0.62, 1.6},  Cusp{0.0, 0.02, 0.95, 0.14, -0.3},
    Cusp{-0.2, 0.5, 0.10, 0.6, -0.15},   Cusp{0.42, 0.5, 0.10, 0.6, -0.12},
    Cusp{-0.05, -0.5, 0.10, 0.6, -0.18},
};
constexpr std::array secondMolarCusps = {
    Cusp{-0.46, 0.52, 0.60, 0.62, 1.4},  Cusp{0.46, 0.52, 0.58, 0.62, 1.3},
    Cusp{-0.46, -0.54, 0.60, 0.62, 1.6}, Cusp{0.46, -0.54, 0.58, 0.62, 1.5},
    Cusp{0.0, 0.0, 0.95, 0.14, -0.3},    Cusp{0.0, 0.5, 0.10, 0.6, -0.18},
    Cusp{0.0, -0.5, 0.10, 0.6, -0.18},
};

// Widths and heights are means of adult lower teeth, as textbooks of dental anatomy print them, rounded.
constexpr std::array teeth = {
    Tooth{1,
          5.4,
          0.3,
          {2.6, 2.1, 2.7, 0.45, 8.4, 0.9, 0.0, -0.4},
          {2.1, 1.9, 2.0, 0.60, 5.6, 0.5, 2.4, 2.2},
          {}},
    Tooth{2,
          5.9,
          0.3,
          {2.7, 2.2, 2.8, 0.50, 8.2, 0.8, 0.0, -0.4},
          {2.2, 2.0, 2.1, 0.65, 5.6, 0.5, 2.3, 2.1},
          {}},
    Tooth{3,
          6.9,
          0.2,
          {3.2, 2.7, 3.6, 0.75, 8.0, 0.6, -0.2, -0.9},
          {2.4, 2.2, 2.4, 1.00, 5.4, 0.4, 2.1, 1.9},
          canineCusps},
    Tooth{4,
          7.0,
          0.4,
          {3.3, 3.7, 3.9, 2.70, 6.0, 0.0, 0.0, -0.5},
          {2.5, 2.6, 2.7, 1.90, 4.9, 0.0, 1.8, 1.7},
          firstPremolarCusps},
    Tooth{5,
          7.2,
          0.5,
          {3.6, 4.0, 4.2, 3.10, 5.6, -0.2, 0.0, -0.4},
          {2.7, 2.9, 2.9, 2.20, 4.6, -0.1, 1.7, 1.6},
          secondPremolarCusps},
    Tooth{6,
          11.0,
          0.9,
          {4.4, 4.9, 5.2, 4.00, 5.2, -0.5, 0.0, -0.3},
          {3.2, 3.4, 3.5, 2.90, 4.3, -0.3, 1.6, 1.5},
          firstMolarCusps},
    Tooth{7,
          10.5,
          0.9,
          {4.3, 4.8, 5.0, 3.90, 5.0, -0.7, 0.0, -0.2},
          {3.2, 3.4, 3.4, 2.80, 3.9, -0.4, 1.5, 1.4},
          secondMolarCusps},
};

} // namespace

Section blend(Section const& a, Section const& b, double t)
{
    return {mix(a.gumHalfWidth, b.gumHalfWidth, t),
            mix(a.tongueBulge, b.tongueBulge, t),
            mix(a.cheekBulge, b.cheekBulge, t),
            mix(a.topHalfWidth, b.topHalfWidth, t),
            mix(a.height, b.height, t),
            mix(a.lean, b.lean, t),
            mix(a.tongueGumLine, b.tongueGumLine, t),
            mix(a.cheekGumLine, b.cheekGumLine, t)};
}

std::span<Tooth const> lowerTeeth()
{
    return teeth;
}

Section retromolarEnd()
{
    return {3.4, 3.2, 3.2, 2.2, 1.4, -0.2, -1.5, -1.5};
}

double retromolarLength()
{
    return 6.5;
}

} // namespace sample
