#include "images/ImageLimit.h"

#include "Text.h"

#include <CLI/CLI.hpp>

#include <QImageReader>

namespace tool {

void addImageLimitOption(CLI::App& app)
{
    constexpr int most = 1 << 20;
    app.add_option_function<int>(
           "--image-limit", [](int const& limit) { QImageReader::setAllocationLimit(limit); },
           Text::utf8("Most memory that an image may take, in MiB; 128 when not said"))
        ->check(CLI::Range(1, most).description(""))
        ->type_name("MIB");
}

} // namespace tool
