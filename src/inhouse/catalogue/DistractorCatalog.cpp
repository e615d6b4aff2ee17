#include "inhouse/catalogue/DistractorCatalog.h"

#include <QFile>
#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <array>
#include <mutex>
#include <shared_mutex>
#include <utility>

// Q_INIT_RESOURCE has to stand outside of any namespace. Without the call, a static build of this library
// would leave the resource out.
static void initCatalogueResource()
{
    Q_INIT_RESOURCE(distractor_catalogue);
}

namespace {

using namespace Qt::StringLiterals;

using Products = QHash<QString, DistractorProduct>;

template <std::size_t Count>
std::array<float, Count> numbersOf(QJsonArray const& values)
{
    std::array<float, Count> numbers{};
    for (std::size_t i = 0; i < Count; ++i)
        numbers[i] = static_cast<float>(values.at(static_cast<qsizetype>(i)).toDouble());
    return numbers;
}

DistractorProduct productOf(QJsonObject const& entry)
{
    auto const direction = numbersOf<3>(entry["defaultAlignmentDirection"_L1].toArray());
    auto const transform = numbersOf<16>(entry["objectSpaceTransform"_L1].toArray());
    return {entry["name"_L1].toString(), entry["parts"_L1].toInt(),
            QVector3D(direction[0], direction[1], direction[2]), QMatrix4x4(transform.data())};
}

Products readProducts()
{
    initCatalogueResource();
    Products products;
    QFile file(u":/surfaceio/catalogue/distractors.json"_s);
    if (!file.open(QIODevice::ReadOnly))
        return products;
    QJsonArray const entries = QJsonDocument::fromJson(file.readAll()).object()["products"_L1].toArray();
    for (auto const& entry : entries) {
        QJsonObject const object = entry.toObject();
        products.insert(object["id"_L1].toString(), productOf(object));
    }
    return products;
}

struct Catalogue
{
    std::shared_mutex mutex;
    Products products = readProducts();
};

Catalogue& catalogue()
{
    static Catalogue instance;
    return instance;
}

DistractorProduct productWith(QString const& productId)
{
    Catalogue& known = catalogue();
    std::shared_lock const lock(known.mutex);
    return std::as_const(known.products).value(productId);
}

} // namespace

QString DistractorCatalog::getProductName(QString const& productId)
{
    return productWith(productId).name;
}

int DistractorCatalog::getNumParts(QString const& productId)
{
    return productWith(productId).numParts;
}

QVector3D DistractorCatalog::getDefaultAlignmentDirection(QString const& productId)
{
    return productWith(productId).defaultAlignmentDirection;
}

QMatrix4x4 DistractorCatalog::getObjectSpaceTransform(QString const& productId)
{
    return productWith(productId).objectSpaceTransform;
}

void DistractorCatalog::addProduct(QString const& productId, DistractorProduct const& product)
{
    Catalogue& known = catalogue();
    std::unique_lock const lock(known.mutex);
    known.products.insert(productId, product);
}
