#include "Text.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

// "%n edge(s)" of a language without a catalogue is English.
QString withEnglishForms(QString text, qint64 count)
{
    static QRegularExpression const choice(u"\\((\\w*)\\|(\\w*)\\)"_s);
    text.replace("(s)"_L1, count == 1 ? ""_L1 : "s"_L1);
    return text.replace(choice, count == 1 ? u"\\1"_s : u"\\2"_s);
}

// A number with the plural of `count`, as Qt counts with int only. Plurals go by the last six digits at most.
int representative(qint64 count)
{
    constexpr qint64 period = 1'000'000;
    return static_cast<int>(count < period ? count : period + count % period);
}

} // namespace

QString Text::counted(char const* text, char const* comment, qint64 count)
{
    int const number = representative(count);
    QString shown = withEnglishForms(tr(text, comment, number), count);
    if (number != count)
        shown.replace(QString::number(number), QString::number(count));
    return shown;
}

std::string Text::utf8(char const* text)
{
    return tr(text).toStdString();
}

} // namespace tool
