// The library's diagnostics: lines on standard output, without level or time stamp.
#pragma once

#if defined(__GNUC__)
#define FOVIX_PRINTF_FORMAT __attribute__((format(printf, 1, 2)))
#else
#define FOVIX_PRINTF_FORMAT
#endif

namespace fovix {

/// Formats as printf does and adds no line end.
void printLine(const char* format, ...) FOVIX_PRINTF_FORMAT;

}  // namespace fovix
