# Runs on the folders that cpack has filled, before it packs them: programs and libraries lose their run paths.
file(GLOB_RECURSE files LIST_DIRECTORIES false ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*)
foreach(name IN LISTS files)
    if(NOT IS_SYMLINK ${name} AND name MATCHES "/bin/|\\.so")
        file(RPATH_REMOVE FILE ${name})
    endif()
endforeach()
