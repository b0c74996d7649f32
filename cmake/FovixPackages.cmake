# Debian packages, one per component of FovixInstall.cmake: libfovix1, libfovix-dev, fovix-tools.

set(packaging ${PROJECT_SOURCE_DIR}/packaging)
file(STRINGS ${packaging}/changelog newest LIMIT_COUNT 1)
if(NOT newest MATCHES "^fovix \\(${PROJECT_VERSION}-([0-9]+)\\)")
    message(FATAL_ERROR "packaging/changelog: expected ${PROJECT_VERSION} as the newest entry, got: ${newest}")
endif()
set(CPACK_DEBIAN_PACKAGE_RELEASE ${CMAKE_MATCH_1})

set(CPACK_PACKAGE_NAME fovix)
set(CPACK_PACKAGE_CONTACT "The Fovix developers <developers@fovix.invalid>")
# Every component has its own description, synopsis included.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS ${packaging}/BeforePackages.cmake)
set(CPACK_POST_BUILD_SCRIPTS ${packaging}/AfterPackages.cmake)

set(CPACK_GENERATOR DEB)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SOURCE fovix)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/Multi)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")

set(about "Fovix turns the images of fisheye cameras into dewarped views that a user
can steer: panoramas, up to six pan-tilt-zoom screens, picture in picture,
two lenses in one image, grids of images.")

set(CPACK_COMPONENTS_ALL fovix_runtime fovix_development)
set(CPACK_DEBIAN_FOVIX_RUNTIME_PACKAGE_NAME libfovix${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_FOVIX_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_COMPONENT_FOVIX_RUNTIME_DESCRIPTION "steerable views of fisheye images with OpenGL - library
${about}
.
This package contains the shared library.")

set(CPACK_DEBIAN_FOVIX_DEVELOPMENT_PACKAGE_NAME libfovix-dev)
set(CPACK_DEBIAN_FOVIX_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_COMPONENT_FOVIX_DEVELOPMENT_DEPENDS fovix_runtime)
set(CPACK_COMPONENT_FOVIX_DEVELOPMENT_DESCRIPTION "steerable views of fisheye images with OpenGL - development files
${about}
.
This package contains the header and the files that pkg-config and CMake
need to find the library.")

if(FOVIX_BUILD_PROGRAMS)
    list(APPEND CPACK_COMPONENTS_ALL fovix_tools)
    set(CPACK_DEBIAN_FOVIX_TOOLS_PACKAGE_NAME fovix-tools)
    set(CPACK_DEBIAN_FOVIX_TOOLS_PACKAGE_SECTION graphics)
    set(CPACK_COMPONENT_FOVIX_TOOLS_DEPENDS fovix_runtime)
    set(CPACK_COMPONENT_FOVIX_TOOLS_DESCRIPTION "steerable views of fisheye images with OpenGL - programs
${about}
.
This package contains the programs: fovix-render renders views of images
and videos into files, fovix-view is an interactive viewer.")
endif()

include(CPack)
