#include "Fuzz.h"
#include "vmesh/MTModelBoundaryConditionsParser.h"
#include "vmesh/MTModelBoundaryConditionsWriter.h"

namespace {

using namespace Qt::StringLiterals;

bool isNew(MTModelBoundaryConditions const& record)
{
    return record.numBoundaryConditions == -1 && record.pointIndices.isNull() && record.values.isNull();
}

template <typename Value>
bool sameArray(QSharedPointer<Value> const& a, QSharedPointer<Value> const& b, qint64 count)
{
    return std::memcmp(a.data(), b.data(), static_cast<std::size_t>(count) * sizeof(Value)) == 0;
}

// Looks at every value of both arrays.
void requireSame(MTModelBoundaryConditions const& a, MTModelBoundaryConditions const& b)
{
    qint64 const count = a.numBoundaryConditions;
    fuzz::require(count == b.numBoundaryConditions);
    if (count <= 0)
        return;
    fuzz::require(sameArray(a.pointIndices, b.pointIndices, count));
    fuzz::require(sameArray(a.values, b.values, 3 * count));
}

// Components are written with six digits: they change once, and the points not at all.
void requireRewritten(MTModelBoundaryConditions const& record, QString const& path)
{
    fuzz::require(MTModelBoundaryConditionsWriter(record).write(path));
    MTModelBoundaryConditionsParser parser(path);
    fuzz::require(parser.read());
    auto const again = parser.getBoundaryConditions();
    fuzz::require(again.numBoundaryConditions == record.numBoundaryConditions);
    if (record.numBoundaryConditions > 0)
        fuzz::require(
            sameArray(again.pointIndices, record.pointIndices, qint64(record.numBoundaryConditions)));
}

} // namespace

// The input as a file.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    static fuzz::ScratchFolder const folder;
    QString const path = folder.write(u"conditions"_s, fuzz::bytesOf(data, size));
    fuzz::silence();
    MTModelBoundaryConditionsParser parser(path);
    bool const success = parser.read();
    auto const record = parser.getBoundaryConditions();
    QStringList const log = fuzz::messages();
    fuzz::require(success ? record.numBoundaryConditions >= 0 && log.isEmpty() : isNew(record));

    fuzz::silence();
    fuzz::require(parser.read() == success && fuzz::messages() == log);
    requireSame(parser.getBoundaryConditions(), record);
    if (success)
        requireRewritten(record, folder.path(u"written"_s));
    return 0;
}
