// The library's diagnostics: printf lines on standard output, without level or time stamp.
#pragma once

#if defined(__GNUC__)
#define FOVIX_PRINTF_FORMAT __attribute__((format(printf, 1, 2)))
#else
#define FOVIX_PRINTF_FORMAT
#endif

namespace fovix {

void printLine(const char* format, ...) FOVIX_PRINTF_FORMAT;

}  // namespace fovix
