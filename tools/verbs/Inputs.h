#pragma once

#include <QStringList>

#include <string>
#include <vector>

namespace tool {

/// A file that an argument stands for, or a place that could not be looked at.
struct Input
{
    QString path;
    /// Its folder below the one that was named, "" for one that was named itself or lies in it directly.
    QString subfolder = {};
    /// Why there is no file: a folder that cannot be read or holds none, a pattern that fits none. Empty for
    /// a file.
    QString problem = {};
    /// One of the codes of check/Finding.cpp.
    QLatin1StringView problemCode = {};
    /// Whether it lies in a folder that was named, and was not named itself.
    bool isOfFolder = false;
};

/// The files that the arguments of a verb stand for, in their order: a folder stands for the files below it
/// whose suffix is one of `suffixes`, sorted by path; a pattern with * or ? that no shell has expanded for
/// those that fit, folders in the pattern included; anything else for itself, whether it exists or not. Each
/// file is named once, and so is each place that could not be looked at.
std::vector<Input> inputsIn(std::vector<std::string> const& arguments, QStringList const& suffixes);

/// The same with the suffixes of every format that is known.
std::vector<Input> inputsIn(std::vector<std::string> const& arguments);

} // namespace tool
