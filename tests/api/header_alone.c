/* Proves that the public header stands alone: it is the only include here besides the list of the exported
   names, and every function that the list names links under C linkage. Compiled as C99 and, by
   header_alone.cpp, as C++. Status 1: the header's version numbers are not the library's; 2: a wrong call of
   this program. */
#include "Fovix.h"

typedef void (*AnyFunction)(void);

struct Export {
    const char* name;
    AnyFunction address;
};

#define EXPORT(function) {#function, (AnyFunction)function},
static const struct Export exports[] = {
#include "exports.inc"
};
#undef EXPORT

#define TEXT_OF(number) #number
#define TEXT(number) TEXT_OF(number)
static const char headerVersion[] =
    TEXT(FOVIX_VERSION_MAJOR) "." TEXT(FOVIX_VERSION_MINOR) "." TEXT(FOVIX_VERSION_PATCH) "_dbg";

static int sameText(const char* a, const char* b) {
    while (*a != '\0' && *a == *b) {
        ++a;
        ++b;
    }
    return *a == *b;
}

/* The name comes from outside, so that the compiler has to keep the whole table and its references. */
int main(int argc, char** argv) {
    if (argc != 2) return 2;
    for (unsigned i = 0; i < sizeof exports / sizeof exports[0]; ++i) {
        if (!sameText(exports[i].name, argv[1])) continue;
        const char* (*version)(void) = (const char* (*)(void))exports[i].address;
        return sameText(version(), headerVersion) ? 0 : 1;
    }
    return 2;
}
