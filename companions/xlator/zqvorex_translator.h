// The translator "qxlator_zqvorex": the static description of a code from the explanation
// files, as the driver's default translator gives it, and the dynamic description of the
// reports the driver writes.
#pragma once

#include "zqxlator_translator.h"

namespace qxlator {

inline constexpr const char* kZqvorexTranslator = "qxlator_zqvorex";

// A new translator record, ended by its own `destroy`; null when there is no memory.
zqxlator_Translator* makeZqvorexTranslator();

}  // namespace qxlator
