/* Defaults of the address sanitizer, linked into every program that is built with it.

   The leak check of GCC 12 looks for thread-local variables of libraries that were loaded late. If such a
   block starts 16 bytes into a page, the check mistakes the allocator's header for that of an old C library
   and crashes. With the option off, it still sees the blocks, as memory of the loader.
 */
const char* __asan_default_options(void);

const char* __asan_default_options(void) {
    return "intercept_tls_get_addr=0";
}
