// Error sites that tests make up on the spot, as a plug-in or an earlier step of a call would
// set them: the constant's text stands in the report exactly as written.
#pragma once

#include "status/status.h"
#include "zqvorex_status_codes.h"

#define ZQ_TEST_SITE(file, line, constant) \
  (::zqerr::SourceLocation{file, line, ::zqerr::kComponent, #constant})

#define ZQ_TEST_FAIL(status, constant, file, line) \
  ::zqerr::setWithLocation(status, constant, ZQ_TEST_SITE(file, line, constant))
