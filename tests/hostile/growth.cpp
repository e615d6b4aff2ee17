// How long the worst files take at one, two and four times their size, in seconds of the processor. Machines
// differ and are busy, so that nothing fails here: a row whose last ratio is far from 2 is worth a look.
#include "hostile/GrowingFiles.h"
#include "hostile/Messages.h"

#include <QTextStream>

#include <algorithm>
#include <ctime>

namespace {

// The least of a few, as a busy machine only adds.
double secondsOf(hostile::Subject const& subject, QByteArray const& bytes)
{
    double least = 0;
    for (int i = 0; i < 3; ++i) {
        std::clock_t const start = std::clock();
        hostile::read(subject, bytes);
        double const seconds = double(std::clock() - start) / CLOCKS_PER_SEC;
        least = i == 0 ? seconds : std::min(least, seconds);
    }
    return least;
}

} // namespace

int main(int argc, char** argv)
{
    QTextStream out(stdout);
    out.setRealNumberNotation(QTextStream::FixedNotation);
    out.setRealNumberPrecision(3);
    out << "| file | MB at 4x | s at 1x | s at 2x | s at 4x | 4x to 2x |\n|---|---|---|---|---|---|\n";
    hostile::Messages const messages;
    for (hostile::GrowingFile const& file : hostile::growingFiles()) {
        if (argc > 1 && !file.name.contains(argv[1]))
            continue;
        std::array<double, hostile::growingSizes.size()> seconds{};
        qsizetype bytes = 0;
        for (std::size_t i = 0; i < seconds.size(); ++i) {
            QByteArray const content = file.make(hostile::growingSizes[i]);
            bytes = content.size();
            seconds[i] = secondsOf(file.subject, content);
        }
        out << "| " << file.name << " | " << double(bytes) / 1e6;
        for (double const value : seconds)
            out << " | " << value;
        out << " | " << seconds[2] / std::max(seconds[1], 1e-6) << " |\n";
        out.flush();
    }
}
