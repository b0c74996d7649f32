# Install rules, in the components fovix_runtime (the library), fovix_development (header, packages for pkg-config and
# CMake) and fovix_tools (programs). Installed files refer to each other by relative paths, so the tree is relocatable;
# except under /usr, where loader and linker find the library anyway.
set(FOVIX_SYSTEM_PREFIX OFF)
if(CMAKE_INSTALL_PREFIX STREQUAL "/usr")
    set(FOVIX_SYSTEM_PREFIX ON)
endif()

# fovix_install_library(target): installs the library and what hosts need to build against it.
function(fovix_install_library target)
    if(NOT FOVIX_INSTALL)
        return()
    endif()
    install(
        TARGETS ${target}
        EXPORT fovix
        LIBRARY COMPONENT fovix_runtime NAMELINK_COMPONENT fovix_development
        INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
    install(FILES ${PROJECT_SOURCE_DIR}/include/Fovix.h TYPE INCLUDE COMPONENT fovix_development)

    # Hosts need no other package to link the library, so the exported targets are the whole configuration.
    include(CMakePackageConfigHelpers)
    set(package ${CMAKE_INSTALL_LIBDIR}/cmake/fovix)
    install(EXPORT fovix NAMESPACE fovix:: FILE fovixConfig.cmake DESTINATION ${package} COMPONENT fovix_development)
    set(version_file ${PROJECT_BINARY_DIR}/fovixConfigVersion.cmake)
    write_basic_package_version_file(${version_file} COMPATIBILITY SameMajorVersion)
    install(FILES ${version_file} DESTINATION ${package} COMPONENT fovix_development)

    set(prefix ${CMAKE_INSTALL_PREFIX})
    if(NOT FOVIX_SYSTEM_PREFIX)
        set(full_pkgconfig ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig)
        cmake_path(RELATIVE_PATH CMAKE_INSTALL_PREFIX BASE_DIRECTORY ${full_pkgconfig} OUTPUT_VARIABLE up_to_prefix)
        set(prefix "\${pcfiledir}/${up_to_prefix}")
    endif()
    file(RELATIVE_PATH includes ${CMAKE_INSTALL_PREFIX} ${CMAKE_INSTALL_FULL_INCLUDEDIR})
    file(RELATIVE_PATH libraries ${CMAKE_INSTALL_PREFIX} ${CMAKE_INSTALL_FULL_LIBDIR})
    configure_file(${PROJECT_SOURCE_DIR}/cmake/fovix.pc.in ${PROJECT_BINARY_DIR}/fovix.pc @ONLY)
    set(pkgconfig ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
    install(FILES ${PROJECT_BINARY_DIR}/fovix.pc DESTINATION ${pkgconfig} COMPONENT fovix_development)
endfunction()

# fovix_install_program(target): installs a program and its manual page, if there is one.
function(fovix_install_program target)
    if(NOT FOVIX_INSTALL)
        return()
    endif()
    install(TARGETS ${target} RUNTIME COMPONENT fovix_tools)
    install(
        FILES ${PROJECT_SOURCE_DIR}/docs/man/${target}.1
        DESTINATION ${CMAKE_INSTALL_MANDIR}/man1
        COMPONENT fovix_tools
        OPTIONAL)
    if(NOT FOVIX_SYSTEM_PREFIX AND NOT DEFINED CMAKE_INSTALL_RPATH)
        file(RELATIVE_PATH libraries ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
        set_target_properties(${target} PROPERTIES INSTALL_RPATH "$ORIGIN/${libraries}")
    endif()
endfunction()
