# Runs on the folders that cpack has filled, before it packs them: programs and libraries lose their run paths, and
# manual pages are compressed, without name and time.
file(GLOB_RECURSE files LIST_DIRECTORIES false ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*)
foreach(name IN LISTS files)
    if(name MATCHES "/man/man[0-9]/[^/]*[0-9]$")
        execute_process(COMMAND gzip -9n ${name} COMMAND_ERROR_IS_FATAL ANY)
    elseif(NOT IS_SYMLINK ${name} AND name MATCHES "/bin/|\\.so")
        file(RPATH_REMOVE FILE ${name})
    endif()
endforeach()
