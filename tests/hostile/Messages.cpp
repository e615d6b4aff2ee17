#include "hostile/Messages.h"

#include <QRegularExpression>

#include <cstdio>
#include <mutex>

using namespace Qt::StringLiterals;

namespace hostile {

namespace {

std::mutex guard;
QStringList lines;

} // namespace

Messages::Messages()
    : before(qInstallMessageHandler(keep))
{
    take();
}

Messages::~Messages()
{
    qInstallMessageHandler(before);
}

QStringList Messages::take()
{
    std::lock_guard const lock(guard);
    return std::exchange(lines, {});
}

QString Messages::complaintOfQt() const
{
    static QRegularExpression const misuse(u"^(Q[A-Z]\\w*::\\w+|QIODevice|QFSFileEngine|QFile)[: (]"_s);
    std::lock_guard const lock(guard);
    for (QString const& line : lines)
        if (misuse.match(line).hasMatch())
            return line;
    return {};
}

// Keeps no more than a test can look at: a million faces may have a message each.
void Messages::keep(QtMsgType type, QMessageLogContext const&, QString const& text)
{
    constexpr qsizetype mostLines = 10'000;
    constexpr qsizetype mostCharacters = 400;
    if (type == QtFatalMsg)
        std::fputs(qPrintable(text + u'\n'), stderr);
    std::lock_guard const lock(guard);
    if (lines.size() < mostLines)
        lines << text.left(mostCharacters);
}

} // namespace hostile
