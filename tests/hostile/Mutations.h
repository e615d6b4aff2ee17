#pragma once

#include <QByteArray>
#include <QByteArrayList>

#include <functional>

namespace hostile {

/// Called with each damaged copy of a file and a few words on the damage.
using Visitor = std::function<void(QByteArray const& bytes, QByteArray const& what)>;

/// The systematic damages. `stride` leaves out all but every so many of them; 1 is all.
namespace mutations {

/// Every first part of the file.
void truncations(QByteArray const& seed, qsizetype stride, Visitor const& visit);
/// Every byte 0, 0xFF and with each of its bits flipped.
void bytes(QByteArray const& seed, qsizetype stride, Visitor const& visit);
/// At every offset a 32-bit count of either byte order: 0, 1, -1, the largest, the smallest, one more and
/// one less than what stands there; and a 16-bit one likewise.
void counts(QByteArray const& seed, qsizetype stride, Visitor const& visit);
/// Every number of a text file replaced by the values that a count can be hostile with.
void numbers(QByteArray const& seed, qsizetype stride, Visitor const& visit);
/// Every line dropped, doubled, emptied, with a NUL, a byte-order mark, Latin-1 and a tab within; and all
/// lines ended by carriage returns, with and without a line feed.
void lines(QByteArray const& seed, qsizetype stride, Visitor const& visit);
/// Every line with a megabyte behind it: blanks, letters, digits, slashes, NULs.
void longLines(QByteArray const& seed, qsizetype stride, Visitor const& visit);

} // namespace mutations

} // namespace hostile
