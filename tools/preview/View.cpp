#include "preview/View.h"

#include <array>

using namespace Qt::StringLiterals;

namespace tool::preview {

namespace {

View lookingFrom(QLatin1StringView name, QVector3D const& from, QVector3D const& up)
{
    QVector3D const toViewer = from.normalized();
    QVector3D const right = QVector3D::crossProduct(up, toViewer).normalized();
    return {name, right, QVector3D::crossProduct(toViewer, right), toViewer};
}

} // namespace

std::span<View const> views()
{
    static std::array const table = {
        lookingFrom("front"_L1, {0, 1, 0}, {0, 0, 1}), lookingFrom("occlusal"_L1, {0, 0, 1}, {0, 1, 0}),
        lookingFrom("left"_L1, {-1, 0, 0}, {0, 0, 1}), lookingFrom("right"_L1, {1, 0, 0}, {0, 0, 1}),
        lookingFrom("iso"_L1, {-4, 7, 8}, {0, 0, 1}),
    };
    return table;
}

View const* viewNamed(QLatin1StringView name)
{
    for (View const& view : views()) {
        if (view.name == name)
            return &view;
    }
    return nullptr;
}

} // namespace tool::preview
