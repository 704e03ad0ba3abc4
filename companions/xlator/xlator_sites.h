// The places in this library that set a status code, with the library's own component name.
#pragma once

#include "status/status.h"
#include "zqvorex_status_codes.h"

namespace qxlator {

inline constexpr const char* kComponent = "zqxlator";

inline constexpr zqerr::SourceLocation kSessionMemory{"qxlator/exports", 34, kComponent, "zqapalerr_memoryFull"};
inline constexpr zqerr::SourceLocation kUnknownTranslator{"qxlator/exports", 52, kComponent,
                                                          "zqapalerr_resourceNotFound"};
inline constexpr zqerr::SourceLocation kTranslatorMemory{"qxlator/exports", 58, kComponent, "zqapalerr_memoryFull"};
inline constexpr zqerr::SourceLocation kUnsupportedFormat{"qxlator/zqvorexTranslator", 41, kComponent,
                                                          "zqapalerr_featureUnsupported"};
inline constexpr zqerr::SourceLocation kReportNotObject{"qxlator/dynamicItems", 151, kComponent,
                                                        "zqapalerr_invalidParameter"};
inline constexpr zqerr::SourceLocation kDescriptionMemory{"qxlator/dynamicItems", 160, kComponent,
                                                          "zqapalerr_memoryFull"};

}  // namespace qxlator
