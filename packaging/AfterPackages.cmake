# CPack runs this on the finished packages. It adds the symbols file of the library, which must list all exports, and
# replaces CPack's maintainer scripts, which call ldconfig, by the trigger with which dpkg calls it once for all
# packages. The files of the libfovix packages are in folders of their architecture, so several architectures can be
# installed together.

find_program(dpkg_deb dpkg-deb REQUIRED)
find_program(dpkg_gensymbols dpkg-gensymbols REQUIRED)
foreach(package IN LISTS CPACK_PACKAGE_FILES)
    set(tree ${package}.tree)
    file(REMOVE_RECURSE ${tree})
    execute_process(COMMAND ${dpkg_deb} --raw-extract ${package} ${tree} COMMAND_ERROR_IS_FATAL ANY)
    if(EXISTS ${tree}/DEBIAN/shlibs)
        file(REMOVE ${tree}/DEBIAN/postinst ${tree}/DEBIAN/postrm)
        file(WRITE ${tree}/DEBIAN/triggers "activate-noawait ldconfig\n")
        set(name ${CPACK_DEBIAN_FOVIX_RUNTIME_PACKAGE_NAME})
        execute_process(COMMAND ${dpkg_gensymbols} -c4 -q -v${CPACK_PACKAGE_VERSION} -p${name} -P${tree}
                                -I${CMAKE_CURRENT_LIST_DIR}/${name}.symbols COMMAND_ERROR_IS_FATAL ANY)
    endif()
    if(package MATCHES "/libfovix[^/]*$")
        file(READ ${tree}/DEBIAN/control control)
        file(WRITE ${tree}/DEBIAN/control "Multi-Arch: same\n${control}")
    endif()
    execute_process(COMMAND ${dpkg_deb} --root-owner-group --build ${tree} ${package}
                    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
    file(REMOVE_RECURSE ${tree})
endforeach()
