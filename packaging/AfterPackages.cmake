# CPack runs this on the finished packages. Its own maintainer scripts call ldconfig; dpkg does that once for all
# packages when the one with a library pulls the trigger, so the trigger takes their place. Library and development
# files keep to folders of their architecture: those of several may be installed beside each other.

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
