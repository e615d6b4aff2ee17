#pragma once

#include "output/OutputFile.h"

#include <QByteArray>

namespace tool {

/// A file whose content is in memory, with the care of OutputFile. Of several that belong together all are
/// written and checked before the first is moved. Each step returns nothing, or what went wrong.
class BytesFile
{
public:
    explicit BytesFile(QString const& path);

    QString open(bool mayReplace);
    QString write(QByteArray const& content);
    QString check() const;
    QString moveIntoPlace();
    /// Both.
    QString commit();

    QString const path;

private:
    OutputFile output;
    qint64 bytes = 0;
};

} // namespace tool
