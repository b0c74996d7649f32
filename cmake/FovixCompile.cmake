# fovix_compile(target): applies the project's compiler settings.

function(fovix_compile target)
    target_compile_features(${target} PRIVATE cxx_std_20 c_std_99)
    set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF C_EXTENSIONS OFF)
    target_compile_options(
        ${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
        # GCC 12 reports false overlaps in string concatenations.
        $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict> $<$<BOOL:${CMAKE_COMPILE_WARNING_AS_ERROR}>:-Werror>)
    if(FOVIX_SANITIZE)
        target_compile_options(${target} PRIVATE -fsanitize=${FOVIX_SANITIZE} -fno-sanitize-recover=all
                                                 -fno-omit-frame-pointer
                                                 -O1 -g1)  # compiles faster, and reports still have line numbers
        target_link_options(${target} PRIVATE -fsanitize=${FOVIX_SANITIZE})
    endif()
    get_target_property(type ${target} TYPE)
    if(FOVIX_SANITIZE MATCHES "address" AND type STREQUAL "EXECUTABLE")
        target_sources(${target} PRIVATE ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/SanitizerOptions.c)
    endif()
endfunction()
