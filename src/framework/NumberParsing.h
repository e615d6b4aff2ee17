#pragma once

#include <QAnyStringView>

/// The numbers of text formats: exactly the answers of `QString::toFloat` and of
/// `StringConversions::stringToInt`, without building a `QString` for the spellings that exporters write.
///
/// Locale-independent, stateless, never fails other than by its result.
namespace numbers {

/// `QString(text).toFloat(ok)`: rounds to double, then to single precision; surrounding white space is
/// skipped; "nan" and "inf" are numbers. A failure gives 0, an overflow an infinity, both with `*ok` false.
float toFloat(QAnyStringView text, bool* ok);

/// `StringConversions::stringToInt(text, 0)`: the decimal integer, 0 where `text` holds none.
int toInt(QAnyStringView text);

} // namespace numbers
