# CPack runs this on the finished packages. It replaces CPack's maintainer scripts, which call ldconfig, by the trigger
# with which dpkg calls it once for all packages. The files of the libfovix packages are in folders of their
# architecture, so several architectures can be installed together.

find_program(dpkg_deb dpkg-deb REQUIRED)
foreach(package IN LISTS CPACK_PACKAGE_FILES)
    set(tree ${package}.tree)
    file(REMOVE_RECURSE ${tree})
    execute_process(COMMAND ${dpkg_deb} --raw-extract ${package} ${tree} COMMAND_ERROR_IS_FATAL ANY)
    if(EXISTS ${tree}/DEBIAN/shlibs)
        file(REMOVE ${tree}/DEBIAN/postinst ${tree}/DEBIAN/postrm)
        file(WRITE ${tree}/DEBIAN/triggers "activate-noawait ldconfig\n")
    endif()
    if(package MATCHES "/libfovix[^/]*$")
        file(READ ${tree}/DEBIAN/control control)
        file(WRITE ${tree}/DEBIAN/control "Multi-Arch: same\n${control}")
    endif()
    execute_process(COMMAND ${dpkg_deb} --root-owner-group --build ${tree} ${package}
                    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
    file(REMOVE_RECURSE ${tree})
endforeach()
