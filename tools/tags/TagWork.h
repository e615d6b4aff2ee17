#pragma once

#include "tags/TaggedFile.h"

#include <QStringList>

namespace tool::tags {

struct SplitOptions
{
    QString in;
    /// {name}, {tag} and {subTag} stand for the input's name without suffix, and for the numbers.
    QString pattern;
    QString directory;
    bool mayReplace = false;
    bool json = false;
};

/// Writes the facets of each tag to a file of its own; tags that get the same name go to the same file.
/// Either all files appear or none. Prints their names.
ExitCode split(SplitOptions const& options, Console& console);

struct MergeOptions
{
    /// "FILE" keeps its tags, "TAG=FILE" and "TAG/SUBTAG=FILE" give all of its facets that one.
    QStringList inputs;
    QString out;
    bool mayReplace = false;
};

/// Writes the facets of several files, one file after the other, behind the header of the first.
ExitCode merge(MergeOptions const& options, Console& console);

struct RelabelOptions
{
    QString in;
    QString out;
    /// As `ruleFrom` reads them. The first that applies to a facet counts.
    QStringList rules;
    bool mayReplace = false;
};

/// Writes a file anew with other tags. Warns of rules that apply to no facet.
ExitCode relabel(RelabelOptions const& options, Console& console);

} // namespace tool::tags
