#include "convert/Progress.h"

#include "Text.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

constexpr int barLength = 20;
constexpr double bytesOfMegabyte = 1e6;
constexpr qint64 secondsOfMinute = 60;

QString timeText(double seconds)
{
    qint64 const whole = std::llround(seconds);
    return u"%1:%2"_s.arg(whole / secondsOfMinute).arg(whole % secondsOfMinute, 2, 10, QChar(u'0'));
}

QString barText(double share)
{
    int const length = static_cast<int>(share * barLength);
    return u'[' + QString(length, u'#') + QString(barLength - length, u'.') + u']';
}

} // namespace

QString Progress::text() const
{
    double const share = bytes > 0 ? std::clamp(double(bytesDone) / double(bytes), 0.0, 1.0) : 0.0;
    double const seconds = double(milliseconds) / 1000;
    QString line = barText(share) + u" %1/%2"_s.arg(filesDone).arg(files);
    if (bytesDone == 0 || milliseconds <= 0)
        return line + u"  "_s + timeText(seconds);
    if (bytesDone >= bytes) // read, but not yet written
        return line + u"  100 %  "_s + Text::tr("finishing");
    double const rate = double(bytesDone) / seconds;
    line += u"  %1 %"_s.arg(static_cast<int>(share * 100));
    line += u"  %1 MB/s"_s.arg(QString::number(rate / bytesOfMegabyte, 'f', 1));
    return line + u"  "_s + Text::tr("%1 left").arg(timeText((double(bytes) * (1 - share)) / rate));
}

} // namespace tool
