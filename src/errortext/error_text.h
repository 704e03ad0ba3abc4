// The steps of the error text functions: which language and sections a request has, the text
// of a code, the text and the raw description of the thread's last failure, the repair of a
// translated text, and the copy into the caller's buffer.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "status/status.h"
#include "text/basic_string.h"

namespace zqerrortext {

// A translator's text for a code without description, and what the caller gets instead.
inline constexpr std::string_view kNotFoundText = "Error description not found";
inline constexpr std::string_view kSubstituteText =
    "Error code could not be found. Reinstalling the driver might fix the issue. Otherwise, contact Torvane "
    "technical support.";

// English, with `ade` 2: the requests that take no language.
inline constexpr uint32_t kDefaultLanguageAndAde = 0x200;

// The public language and `ade` arguments in the form the translator takes: 1 to 5 stay, any
// other language is English; `ade` 0, 1, 2 become 1, 2, 3 and anything else 2.
uint32_t languageAndAdeOf(uint32_t language, uint32_t ade);

// Whether "enableErrorSrcDisplay" stands under the product's key, read anew on every call:
// any value that a buffer of 1023 bytes takes turns debug display on.
bool debugDisplayEnabled();

// The task name into a private copy of a report, in the form its translator reads: a usage
// item for "qxlator_..." translators and reports without one, "mdbg_task_name" for "mdbg".
void putTaskName(zqerr_Status* copy, std::string_view taskName);

// A failed translation is never the function's failure: its report leaves the text and the
// status is cleared; an empty text, and a text that begins with kNotFoundText, get
// kSubstituteText.
void repairText(zqhtl::String* text, int32_t code, zqerr_Status* status);

// The text in the system code page into the caller's buffer, cut to fit with the warning
// 200026. A size query sets `sizeQuery` and returns the size needed.
int32_t copyTextToCaller(std::string_view utf8, char* buffer, uint32_t bufferSize, bool* sizeQuery,
                         zqerr_Status* status);

// The requests. Each leaves the text empty when there is nothing to tell.
void codeText(int32_t code, uint32_t languageAndAde, zqhtl::String* text, zqerr_Status* status);
void lastErrorText(uint32_t languageAndAde, uint32_t flags, bool debugAsked, zqhtl::String* text,
                   zqerr_Status* status);
void lastErrorDescription(uint32_t languageAndAde, zqhtl::String* text, zqerr_Status* status);

}  // namespace zqerrortext
