#include "base/Diagnostics.h"

#include <cstdarg>
#include <cstdio>

namespace fovix {

void printLine(const char* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    std::vprintf(format, arguments);
    va_end(arguments);
}

}  // namespace fovix
