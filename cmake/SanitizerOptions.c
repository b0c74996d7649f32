/* Linked into every program that is built with the address sanitizer: its defaults.

   The leak check of GCC 12 looks for thread-local variables of libraries that were loaded late. Where such a
   block comes to lie 16 bytes into a page, it reads the allocator's own header as one of an old C library and
   crashes at an address that means nothing. Switched off, it still sees the blocks: as memory of the loader.
 */
const char* __asan_default_options(void);

const char* __asan_default_options(void) {
    return "intercept_tls_get_addr=0";
}
