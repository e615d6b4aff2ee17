#pragma once

#include <QByteArray>

/// What keeps a hostile document from costing minutes or the stack. `QDomDocument` on its own takes
/// quadratic time over the attributes of an element and over nesting, follows entities that multiply, and
/// destroys its tree by recursion.
namespace xmllimits {

inline constexpr qsizetype maxBytes = 64LL * 1024 * 1024;
inline constexpr int maxDepth = 512;
/// Attributes of one element.
inline constexpr int maxAttributes = 256;
/// Tags, texts, comments and so on, of the whole document.
inline constexpr int maxTokens = 4'000'000;
/// Attributes of all elements together, with the defaults of a document type declaration.
inline constexpr qint64 maxAttributesOfAll = 4'000'000;
/// What the document takes in memory once it is a `QDomDocument`: so much, and so many times its size.
inline constexpr qint64 baseMemory = 56LL * 1024 * 1024;
inline constexpr qint64 memoryForEachByte = 10;
/// Characters of all texts and attributes, with entities expanded, and of shapes within shapes once for each.
inline constexpr qint64 maxCharacters = 64LL * 1024 * 1024;
/// Bytes from "<!DOCTYPE" to its end.
inline constexpr qsizetype maxDoctypeBytes = 64LL * 1024;
/// Entity references within a document type declaration, where they multiply.
inline constexpr int maxNestedReferences = 16;
/// References to entities of the document's own, elsewhere.
inline constexpr int maxReferences = 10'000;

/// Whether the document stays within all of these. It need not be well-formed: what is said of a document
/// that is not goes up to the place where it stops being one.
bool isWithinLimits(QByteArray const& document);

} // namespace xmllimits
