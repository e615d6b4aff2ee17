#pragma once

#include "Console.h"

#include <functional>

namespace CLI {
class App;
}

namespace tool {

/// One verb of the program. Each has a file of its own in verbs/ and a row in main.cpp.
struct Verb
{
    /// What a verb does once the command line has been read.
    using Action = std::function<ExitCode(Console&)>;

    char const* name;
    /// What it is for, in one sentence. Its help begins with it.
    char const* purpose;
    /// Two commands, one a line, that show it at work.
    char const* examples;
    /// Adds the verb's options; the action keeps what they are stored in.
    Action (*setUp)(CLI::App& options);
    /// Not listed in the help.
    bool isHidden = false;
};

extern Verb const atlasVerb;
extern Verb const bakeVerb;
extern Verb const bundleVerb;
extern Verb const checkVerb;
extern Verb const completionVerb;
extern Verb const convertVerb;
extern Verb const formatsVerb;
extern Verb const headerVerb;
extern Verb const infoVerb;
extern Verb const manualVerb;
extern Verb const previewVerb;
extern Verb const sampleVerb;
extern Verb const tagsVerb;
extern Verb const vmeshVerb;

} // namespace tool
