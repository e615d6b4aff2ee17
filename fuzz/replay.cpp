// Replays a folder of inputs through a fuzz target, for builds without libFuzzer.
#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QTextStream>

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size);

namespace {

void run(QByteArray const& input)
{
    LLVMFuzzerTestOneInput(reinterpret_cast<std::uint8_t const*>(input.constData()),
                           static_cast<std::size_t>(input.size()));
}

} // namespace

int main(int argc, char** argv)
{
    int count = 0;
    run({});
    for (int i = 1; i < argc; ++i) {
        QDir const folder(QFile::decodeName(argv[i]));
        for (QString const& name : folder.entryList(QDir::Files, QDir::Name)) {
            QFile file(folder.filePath(name));
            if (!file.open(QIODevice::ReadOnly))
                return 1;
            run(file.readAll());
            ++count;
        }
    }
    QTextStream(stdout) << count << " inputs replayed\n";
    return count > 0 ? 0 : 1;
}
