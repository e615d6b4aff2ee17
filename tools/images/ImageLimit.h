#pragma once

#include <QString>

namespace CLI {
class App;
}

namespace tool {

/// Adds "--image-limit MIB", which raises for this process how much memory an image may take.
void addImageLimitOption(CLI::App& app);

} // namespace tool
