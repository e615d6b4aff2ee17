#include "obj/OBJNumbers.h"

#include "framework/NumberParsing.h"

#include <QDebug>

float toFloatIfConditionValid(QAnyStringView text, OBJReader::Error current, bool* hasWarned)
{
    if (current != OBJReader::NoError)
        return 0.0f;
    bool ok = false;
    float const value = numbers::toFloat(text, &ok);
    if (ok)
        return value;
    qWarning() << "`anonymous-namespace'::toFloatIfConditionValid"
               << "Invalid string to float conversion: " << text.toString();
    if (hasWarned)
        *hasWarned = true;
    // Not `value`, which is infinite for a number that is too great.
    return 0.0f;
}
