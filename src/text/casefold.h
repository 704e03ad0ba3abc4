// Names compared without regard to case: full case folding over six ranges of code points,
// everything else folds to itself (so Greek and Cyrillic letters are compared as they stand).
#pragma once

#include <cstddef>

namespace zqwombat {

// Writes the folding of `cp` (one to three units) into `out`; returns the count.
size_t foldCodePoint(char32_t cp, char32_t out[3]);

// One code point of UTF-8 by its lead byte, without checks: the lead gives the length and each
// following byte gives six bits. Never reads at or past `end`; returns the next position.
const char* decodeUtf8Unchecked(const char* p, const char* end, char32_t* cp);

// -1, 0 or 1. Equal bytes compare equal at once; otherwise the folded unit streams are compared
// one unit at a time, a stream that ends first being the smaller.
int compareFolded(const char* begin1, const char* end1, const char* begin2, const char* end2);
// The same over UTF-16 units, each folded as it stands: surrogates are not joined.
int compareFoldedWide(const char16_t* begin1, const char16_t* end1, const char16_t* begin2, const char16_t* end2);

}  // namespace zqwombat
