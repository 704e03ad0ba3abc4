// The message languages: the folder that holds each one's explanation files and the encoding
// its text is in. Nothing here looks at the system's locale; a caller asks for a language.
#pragma once

#include <cstdint>

#include "status/status.h"

namespace zqxlator {

inline constexpr uint32_t kEnglish = 0;

// `languageAndAde`: the language index in bits 0 to 7, `ade` in bits 8 to 11.
inline uint32_t languageOf(uint32_t languageAndAde) { return languageAndAde & 0xFFu; }
inline uint32_t adeOf(uint32_t languageAndAde) { return (languageAndAde >> 8) & 0xFu; }

// "English", "French", "German", "Japanese", "Korean", "ChineseS". An index above 5 gives ""
// and zqapalerr_invalidParameter.
const char* languageFolder(uint32_t language, zqerr_Status* status);
// The encoding number that the text conversions take: 1 to 6. An index above 5 gives 1 and
// zqapalerr_invalidParameter.
uint32_t languageEncoding(uint32_t language, zqerr_Status* status);

// The failure of a conversion between UTF-8 and a language's encoding, from its result code:
// zqsstutf8::kErrorConversion or zqapalerr_memoryFull.
void failConversion(int32_t result, zqerr_Status* status);

}  // namespace zqxlator
