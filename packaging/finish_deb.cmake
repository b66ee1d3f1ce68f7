# Runs on the packages that cpack has made. The trigger of the runtime package is all that the loader's cache needs; the
# scripts that cpack adds for the same are taken out, so that installing libraries runs no script of ours.
foreach(package IN LISTS CPACK_PACKAGE_FILES)
    set(tree ${package}.tree)
    file(REMOVE_RECURSE ${tree})
    execute_process(COMMAND dpkg-deb -R ${package} ${tree} COMMAND_ERROR_IS_FATAL ANY)
    if(NOT package MATCHES "python3-") # whose scripts are its own
        file(REMOVE ${tree}/DEBIAN/postinst ${tree}/DEBIAN/postrm)
    endif()
    execute_process(COMMAND dpkg-deb -b --root-owner-group ${tree} ${package} OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
    file(REMOVE_RECURSE ${tree})
endforeach()
