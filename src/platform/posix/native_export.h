// How a function of the C interface is exported from the shared library.
#pragma once
#define ZQ_NATIVE_EXPORT __attribute__((visibility("default")))
