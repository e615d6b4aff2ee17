#include "Fuzz.h"
#include "framework/NumberParsing.h"
#include "inhouse/fundamentals/StringConversions.h"
#include "vmesh/NumberLine.h"
#include "vmesh/NumberRow.h"

namespace {

bool sameBits(float a, float b)
{
    return std::memcmp(&a, &b, sizeof(a)) == 0;
}

void requireAsQt(QAnyStringView view, QString const& text)
{
    bool ok = false;
    bool qtOk = false;
    float const value = numbers::toFloat(view, &ok);
    float const qtValue = text.toFloat(&qtOk);
    fuzz::require(ok == qtOk && sameBits(value, qtValue));
    fuzz::require(numbers::toInt(view) == StringConversions::stringToInt(text, 0));
}

QString taken(QByteArray const& text, char const* next)
{
    return QString::fromLatin1(text.constData(), next - text.constData());
}

// What a quick function takes from the front is what Qt makes of those characters.
void requireTaken(QByteArray const& text)
{
    char const* const end = text.constData() + text.size();
    char const* next = text.constData();
    float value = 0;
    if (numbers::takeFloat(next, end, value)) {
        bool ok = false;
        fuzz::require(sameBits(value, taken(text, next).toFloat(&ok)) && ok);
    }
    next = text.constData();
    int const digits = numbers::takeDigits(next, end);
    fuzz::require(digits == taken(text, next).toInt());
}

// The first line, as a reader of text has it.
QString lineOf(QByteArray const& text)
{
    QByteArray line = text.first(text.indexOf('\n'));
    if (line.endsWith('\r'))
        line.chop(1);
    return QString::fromLatin1(line);
}

template <std::size_t count>
void requireSameRow(std::array<qint32, count> const& quick,
                    std::optional<std::array<qint32, count>> const& slow)
{
    fuzz::require(slow && *slow == quick);
}

template <std::size_t count>
void requireSameRow(std::array<float, count> const& quick,
                    std::optional<std::array<float, count>> const& slow)
{
    fuzz::require(slow && std::memcmp(slow->data(), quick.data(), sizeof(quick)) == 0);
}

void requireRows(QByteArray const& text)
{
    char const* const behind = text.constData() + text.indexOf('\n') + 1;
    std::array<qint32, 5> integers;
    if (char const* const next = vmesh::readIntegers(text.constData(), integers)) {
        fuzz::require(next == behind);
        requireSameRow(integers, vmesh::integersOf<5>(lineOf(text)));
    }
    std::array<float, 3> reals;
    if (char const* const next = vmesh::readRealNumbers(text.constData(), reals)) {
        fuzz::require(next == behind);
        requireSameRow(reals, vmesh::realNumbersOf<3>(lineOf(text)));
    }
}

} // namespace

// The input as a number in Latin-1, UTF-8 and UTF-16, at the front of a text, and as a row of numbers.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    fuzz::silence();
    QByteArray const text = fuzz::bytesOf(data, size);
    requireAsQt(QLatin1StringView(text), QString::fromLatin1(text));
    requireAsQt(QUtf8StringView(text), QString::fromUtf8(text));
    QString wide(static_cast<qsizetype>(size / 2), Qt::Uninitialized);
    std::memcpy(wide.data(), data, size / 2 * 2);
    requireAsQt(QStringView(wide), wide);
    requireTaken(text);
    requireRows(text + '\n');
    return 0;
}
