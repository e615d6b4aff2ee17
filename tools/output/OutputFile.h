#pragma once

#include "Interrupt.h"

#include <QString>
#include <QTemporaryDir>

#include <optional>

namespace tool {

/// Why a file, which is lost anyway, holds less than was written: "could not be written: " and what the
/// system says when more is written to its end, or `otherwise` when it takes more. Neither Qt nor the library
/// keep a reason when only some of the bytes were taken.
QString whyNotWritten(QString const& path, QString const& otherwise);
/// The same, otherwise "could not be written".
QString whyNotWritten(QString const& path);

/// A file that appears whole or not at all.
///
/// Whatever writes it gets a path of the same suffix in a hidden temporary folder beside the target. Only
/// after the caller has checked what was written does `commit` move it into place; until then, and after any
/// failure, the target is as it was. The temporary folder goes away with this object.
class OutputFile
{
public:
    explicit OutputFile(QString const& target);

    /// Makes the temporary folder. Empty, or why the target cannot be written: it exists and `mayReplace` is
    /// false, it is no regular file, or its folder does not exist or does not let us.
    QString open(bool mayReplace);

    /// Why `open` would refuse the target itself; empty when it would not. Touches nothing.
    QString targetProblem(bool mayReplace) const;

    /// Where to write; after `open`.
    QString temporaryPath() const;

    /// Has the system store the written file, checks that it holds `expectedBytes` bytes (any number but 0
    /// when negative) and that the target may still be written. Empty, or what went wrong, an interruption
    /// included. Of several files that belong together all are checked before the first is moved.
    QString check(qint64 expectedBytes) const;

    /// Renames the written file, which has been checked, to the target. Empty, or what went wrong.
    QString moveIntoPlace();

    /// Both, for a file that stands for itself.
    QString commit(qint64 expectedBytes);

private:
    QString target;
    bool mayReplace = false;
    // Declared first, so that it outlives the folder.
    std::optional<Interrupt::Deferral> deferral;
    std::optional<QTemporaryDir> folder;
};

} // namespace tool
