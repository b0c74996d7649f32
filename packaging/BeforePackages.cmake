# CPack runs this before it packs the files: adds what only Debian requires.

find_program(gzip gzip REQUIRED)
foreach(component IN LISTS CPACK_COMPONENTS_ALL)
    string(TOUPPER ${component} upper)
    set(share ${CPACK_TEMPORARY_DIRECTORY}/${component}/usr/share)
    set(package ${CPACK_DEBIAN_${upper}_PACKAGE_NAME})
    set(documents ${share}/doc/${package})
    configure_file(${CMAKE_CURRENT_LIST_DIR}/copyright ${documents}/copyright COPYONLY)
    configure_file(${CMAKE_CURRENT_LIST_DIR}/changelog ${documents}/changelog.Debian COPYONLY)
    configure_file(${CMAKE_CURRENT_LIST_DIR}/../CHANGELOG.md ${documents}/changelog COPYONLY)
    configure_file(${CMAKE_CURRENT_LIST_DIR}/lintian-overrides ${share}/lintian/overrides/${package} COPYONLY)
    file(GLOB manuals ${share}/man/man*/*)
    execute_process(COMMAND ${gzip} -9nf ${documents}/changelog.Debian ${documents}/changelog ${manuals}
                    COMMAND_ERROR_IS_FATAL ANY)
endforeach()
