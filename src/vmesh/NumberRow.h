#pragma once

#include <QtGlobal>

#include <array>

namespace vmesh {

// Rows of numbers as programs write them: straight from bytes, for files with millions of them. Each function
// takes a row with single blanks between its numbers, which a line feed ends, alone or behind one carriage
// return. It returns where the next row begins, or null when the row may still be right but is spelled in a
// way that it leaves to the slower functions of NumberLine.h; `values` is undefined then.
//
// `row` lies in bytes that have a line feed somewhere behind it.

/// Integers of up to nine digits, perhaps with a minus sign.
char const* readIntegers(char const* row, std::array<qint32, 5>& values);
/// Real numbers in ASCII, of any spelling that `QString::toFloat` accepts.
char const* readRealNumbers(char const* row, std::array<float, 3>& values);

/// An integer as above, and three real numbers.
char const* readIntegerAndRealNumbers(char const* row, qint32& integer, std::array<float, 3>& values);

} // namespace vmesh
