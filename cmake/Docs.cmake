# `docs`: the pages of the installed headers and of docs/, in the folder docs beside the build folder.
find_program(SHAPEMODEL_DOXYGEN NAMES doxygen)
mark_as_advanced(SHAPEMODEL_DOXYGEN)
if(SHAPEMODEL_DOXYGEN)
    set(SHAPEMODEL_DOCUMENTED "")
    foreach(library shapehost shapemodel shapedocument shapemodel-c)
        get_target_property(headers ${library} HEADER_SET)
        get_target_property(folder ${library} SOURCE_DIR)
        foreach(header IN LISTS headers)
            if(NOT header MATCHES "_export\\.h$")
                cmake_path(ABSOLUTE_PATH header BASE_DIRECTORY ${folder})
                string(APPEND SHAPEMODEL_DOCUMENTED "\"${header}\" ")
            endif()
        endforeach()
    endforeach()
    file(GLOB pages CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/docs/*.md)
    foreach(page IN ITEMS README CONTRIBUTING SECURITY CHANGELOG)
        list(APPEND pages ${PROJECT_SOURCE_DIR}/${page}.md)
    endforeach()
    foreach(page IN LISTS pages)
        string(APPEND SHAPEMODEL_DOCUMENTED "\"${page}\" ")
    endforeach()
    configure_file(docs/Doxyfile.in ${PROJECT_BINARY_DIR}/Doxyfile @ONLY)
    set(html ${PROJECT_BINARY_DIR}/../docs/html)
    add_custom_target(docs
        COMMAND ${SHAPEMODEL_DOXYGEN} ${PROJECT_BINARY_DIR}/Doxyfile
        # The pages name pictures by their folder.
        COMMAND ${CMAKE_COMMAND} -E copy_directory ${PROJECT_SOURCE_DIR}/docs/pictures ${html}/pictures
        COMMAND ${CMAKE_COMMAND} -E copy_directory ${PROJECT_SOURCE_DIR}/samples ${html}/samples
        VERBATIM)
endif()
