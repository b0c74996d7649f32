/* Linked into fovix-view where leaks are looked for: libraries stay loaded to the end, so that what a GL
   driver keeps is still found through its own variables and not taken for a leak. */
int dlclose(void* library);

int dlclose(void* library) {
    (void)library;
    return 0;
}
