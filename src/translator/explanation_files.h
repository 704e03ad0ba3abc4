// The explanation files: plain line-oriented text that looks like XML, one description per
// status code, in <shared folder>\errors\<language> and <shared folder>\errors. There is no index
// and nothing is kept between requests: each request walks the folders and reads files line
// by line until it meets the code.
//
//   <?xml version="1.0" encoding="windows-1252"?>       line 1, its first 19 characters
//   <zqdocument>                                         line 2
//   <zqcomment> ... </zqcomment>                         skipped, over as many lines as it takes
//   <zqerror code="-200228">                             the number read as "%i"
//   The description, one or more lines.
//   </zqerror>
//   </zqdocument>                                        nothing after it is read
//
// Tags count only at the very start of a line and compare without regard to case. Lines are
// read 1023 bytes at a time, so a longer line arrives in pieces.
#pragma once

#include <cstdint>
#include <string>

#include "status/status.h"
#include "text/basic_string.h"

namespace zqxlator {

inline constexpr size_t kLineBufferSize = 1024;

// The description of `code` in one file, empty if the file does not hold it or is not an
// explanation file. A damaged explanation file raises zqapalerr_resourceNotFound.
void readExplanationFile(const char* path, int32_t code, zqhtl::String* text, zqerr_Status* status);

// Every regular file of the folder whose extension is exactly "txt" or "err", in the order the
// system lists them, until one holds the code or a failure ends the walk.
void walkExplanationFolder(const std::string& folder, int32_t code, zqhtl::String* text, zqerr_Status* status);

// The language's folder under `base`, then `base` itself. A failure in the language's folder,
// a missing folder included, ends the search there.
void searchExplanations(const std::string& base, int32_t code, uint32_t language, zqhtl::String* text,
                        zqerr_Status* status);

}  // namespace zqxlator
