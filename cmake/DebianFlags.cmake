# Toolchain file of the preset package: Debian's flags for hardened binaries, without debug information, which would
# only be stripped.

# debian_flags(VARIABLE): stores the flags that dpkg-buildflags has for the environment variable of that name.
function(debian_flags variable)
    execute_process(
        COMMAND ${CMAKE_COMMAND} -E env DEB_BUILD_MAINT_OPTIONS=hardening=+all DEB_CFLAGS_MAINT_STRIP=-g
                DEB_CXXFLAGS_MAINT_STRIP=-g dpkg-buildflags --get ${variable}
        WORKING_DIRECTORY ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/.. # which the flags keep out of the binaries
        OUTPUT_VARIABLE flags
        OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    set(${variable} "${flags}" PARENT_SCOPE)
endfunction()

foreach(variable IN ITEMS CPPFLAGS CFLAGS CXXFLAGS LDFLAGS)
    debian_flags(${variable})
endforeach()
set(CMAKE_C_FLAGS_INIT "${CFLAGS} ${CPPFLAGS}")
set(CMAKE_CXX_FLAGS_INIT "${CXXFLAGS} ${CPPFLAGS}")
set(CMAKE_EXE_LINKER_FLAGS_INIT "${LDFLAGS}")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "${LDFLAGS}")
