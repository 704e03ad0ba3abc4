// How a function of the C interface is exported from the DLL.
#pragma once
#define ZQ_NATIVE_EXPORT __declspec(dllexport)
