#include "Report.h"
#include "Text.h"

#include <QStringList>

#include <array>
#include <charconv>
#include <cmath>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

constexpr int textDecimals = 3;
constexpr double largestFixed = 1e9;
constexpr double smallestFixed = 1e-3;
constexpr int textDigits = 6;

template <typename Number>
QString shortest(Number number)
{
    if (!std::isfinite(number))
        return u"null"_s;
    std::array<char, 64> digits;
    auto const result = std::to_chars(digits.data(), digits.data() + digits.size(), number);
    return QString::fromLatin1(digits.data(), result.ptr - digits.data());
}

QString fraction(double number)
{
    if (std::isnan(number))
        return u"nan"_s;
    if (std::isinf(number))
        return number > 0 ? u"inf"_s : u"-inf"_s;
    double const size = std::abs(number);
    if (size >= largestFixed || (size != 0 && size < smallestFixed))
        return QString::number(number, 'g', textDigits);
    QString const text = QString::number(number, 'f', textDecimals);
    return text == "-0.000"_L1 ? u"0.000"_s : text;
}

QString escaped(QChar character)
{
    switch (character.unicode()) {
    case '"':
        return u"\\\""_s;
    case '\\':
        return u"\\\\"_s;
    case '\n':
        return u"\\n"_s;
    case '\r':
        return u"\\r"_s;
    case '\t':
        return u"\\t"_s;
    default:
        return character.unicode() < ' ' || character.isSurrogate()
                   ? u"\\u%1"_s.arg(uint(character.unicode()), 4, 16, '0'_L1)
                   : QString(character);
    }
}

QString quoted(QString const& text)
{
    QString result = u"\""_s;
    for (QChar const character : text)
        result += escaped(character);
    return result + u'"';
}

struct AsText
{
    QString operator()(std::monostate) const { return u"-"_s; }
    QString operator()(bool value) const { return value ? Text::tr("yes") : Text::tr("no"); }
    QString operator()(qint64 value) const { return QString::number(value); }
    QString operator()(float value) const { return fraction(static_cast<double>(value)); }
    QString operator()(double value) const { return fraction(value); }
    QString operator()(QString const& value) const { return value; }
};

struct AsJson
{
    QString operator()(std::monostate) const { return u"null"_s; }
    QString operator()(bool value) const { return value ? u"true"_s : u"false"_s; }
    QString operator()(qint64 value) const { return QString::number(value); }
    QString operator()(float value) const { return shortest(value); }
    QString operator()(double value) const { return shortest(value); }
    QString operator()(QString const& value) const { return quoted(value); }
};

template <typename Visitor>
QStringList visitAll(std::vector<Value::Scalar> const& scalars)
{
    QStringList texts;
    for (Value::Scalar const& scalar : scalars)
        texts << std::visit(Visitor(), scalar);
    return texts;
}

} // namespace

Value::Value(bool value)
    : scalars{value}
{}

Value::Value(int value)
    : scalars{qint64(value)}
{}

Value::Value(qint64 value)
    : scalars{value}
{}

Value::Value(float value)
    : scalars{value}
{}

Value::Value(double value)
    : scalars{value}
{}

Value::Value(QString value)
    : scalars{std::move(value)}
{}

Value::Value(QLatin1StringView value)
    : scalars{QString(value)}
{}

Value::Value(QVector3D const& value)
    : scalars{value.x(), value.y(), value.z()}
    , isArray(true)
{}

Value Value::array(std::vector<Scalar> values)
{
    Value value;
    value.scalars = std::move(values);
    value.isArray = true;
    return value;
}

QString Value::text() const
{
    return visitAll<AsText>(scalars).join(u' ');
}

QString Value::json() const
{
    QString const list = visitAll<AsJson>(scalars).join(", "_L1);
    return isArray ? u'[' + list + u']' : list;
}

bool Value::isNumber() const
{
    return !std::holds_alternative<QString>(scalars.front());
}

} // namespace tool
