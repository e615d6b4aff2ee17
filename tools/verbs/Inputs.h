#pragma once

#include <QStringList>

#include <string>
#include <vector>

namespace tool {

/// The files that the arguments of a verb stand for, in their order: a folder stands for the files below it
/// whose suffix is one of `suffixes`, sorted by path; a pattern with * or ? that no shell has expanded for
/// those in its folder that fit; anything else for itself, whether it exists or not. Each file is named once.
QStringList filesIn(std::vector<std::string> const& arguments, QStringList const& suffixes);

/// The same with the suffixes of every format that is known.
QStringList filesIn(std::vector<std::string> const& arguments);

} // namespace tool
