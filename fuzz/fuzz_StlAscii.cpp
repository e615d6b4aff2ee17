#include "Fuzz.h"
#include "stl/STLReader.h"

#include <QBuffer>

// Everything behind a first line that says "solid", so that no input is lost on the other branch.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    fuzz::silence();
    QByteArray input = "solid\n" + fuzz::bytesOf(data, size);
    std::atomic<bool> const cancel = false;

    STLReader fromBytes(nullptr, false, {});
    bool const success = fromBytes.read(input, cancel);
    fuzz::requireSound(fromBytes.getMesh());
    fuzz::require(success == !fromBytes.getMesh().isNull());

    QBuffer buffer(&input);
    STLReader fromDevice(nullptr, false, {});
    fuzz::require(fromDevice.read(&buffer, cancel) == success);
    fuzz::requireSame(fromDevice.getMesh(), fromBytes.getMesh());
    return 0;
}
