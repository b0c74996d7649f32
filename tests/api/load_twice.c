/* Loads the library, uses a handle and unloads it again, twice: under the leak checker nothing may stay
 * behind. */
#include <dlfcn.h>
#include <stdio.h>

#include "Fovix.h"

static int use_once(const char* library) {
    union {
        void* address;
        void (*create)(VRHANDLE*);
        void (*release)(VRHANDLE);
        int (*type)(VRHANDLE);
    } create, release, type;
    VRHANDLE handle = NULL;
    int is_default_type;
    void* loaded = dlopen(library, RTLD_NOW | RTLD_LOCAL);
    if (!loaded) {
        fprintf(stderr, "%s\n", dlerror());
        return 0;
    }
    create.address = dlsym(loaded, "Fovix_Create");
    release.address = dlsym(loaded, "Fovix_Release");
    type.address = dlsym(loaded, "Fovix_GetType");
    create.create(&handle);
    is_default_type = handle && type.type(handle) == FOVIX_TYPE_180VR;
    release.release(handle);
    dlclose(loaded);
    return is_default_type;
}

int main(int argc, char** argv) {
    return argc == 2 && use_once(argv[1]) && use_once(argv[1]) ? 0 : 1;
}
