#pragma once

#include "check/Finding.h"
#include "inspect/Format.h"
#include "volume/VolumeFile.h"

#include <optional>

namespace tool {

/// What the files of one command line leave for those behind them.
struct CheckContext
{
    /// The last volume mesh that could be read, and its path.
    std::optional<VolumeFile> volume;
    QString volumePath;
};

/// Gathers what is found out about one file.
class Check
{
public:
    Check(RecognisedFile const& file_, CheckContext& context_)
        : file(file_)
        , source(file.source)
        , format(*file.format)
        , context(context_)
    {}

    RecognisedFile const& file;
    Source const& source;
    Format const& format;
    CheckContext& context;
    Findings findings;
};

/// Checks the file at `path` as its format says; where the format says nothing, as any mesh.
Findings checkFile(QString const& path, CheckContext& context);

} // namespace tool
