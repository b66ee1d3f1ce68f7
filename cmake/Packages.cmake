# Debian packages, one a component: `cpack` in a build folder whose prefix is /usr.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME shapemodel)
set(CPACK_PACKAGE_CONTACT "The shapemodel developers <shapemodel@packages.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # each component has a summary of its own
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_OUTPUT_FILE_PREFIX ${PROJECT_BINARY_DIR}/packages)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE
    GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
# The distribution's loader finds the libraries: run paths of the relocatable build are taken out.
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/packaging/finish_package.cmake)
set(CPACK_POST_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/packaging/finish_deb.cmake)

set(CPACK_COMPONENTS_ALL runtime c codecs development curves program workbench)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/lib)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
foreach(component C CODECS DEVELOPMENT CURVES PROGRAM WORKBENCH)
    set(CPACK_COMPONENT_${component}_DEPENDS runtime)
endforeach()
foreach(component PROGRAM WORKBENCH) # programs that import pictures
    list(APPEND CPACK_COMPONENT_${component}_DEPENDS codecs)
endforeach()
list(APPEND CPACK_COMPONENT_DEVELOPMENT_DEPENDS c)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)

function(shapemodel_package component name section summary)
    string(TOUPPER ${component} COMPONENT)
    set(CPACK_DEBIAN_${COMPONENT}_PACKAGE_NAME ${name} PARENT_SCOPE)
    set(CPACK_DEBIAN_${COMPONENT}_PACKAGE_SECTION ${section} PARENT_SCOPE)
    set(CPACK_COMPONENT_${COMPONENT}_DESCRIPTION "${summary}\n${ARGN}" PARENT_SCOPE)
    install(FILES ${PROJECT_SOURCE_DIR}/packaging/copyright ${PROJECT_BINARY_DIR}/changelog.gz
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${name} COMPONENT ${component})
endfunction()

# Without name and time, so that equal sources make equal packages.
execute_process(COMMAND gzip -9nc ${PROJECT_SOURCE_DIR}/packaging/changelog
    OUTPUT_FILE ${PROJECT_BINARY_DIR}/changelog.gz COMMAND_ERROR_IS_FATAL ANY)

set(runtime libshapemodel${PROJECT_VERSION_MAJOR})
shapemodel_package(runtime ${runtime} libs "shape model for laser engraving and cutting"
    "The shapes of a drawing (outlines, texts, pictures, codes, groups, arrays),
 their lines for the machine and their documents.")
set(c libshapemodel-c${PROJECT_VERSION_MAJOR})
shapemodel_package(c ${c} libs "shape model for laser engraving and cutting, C interface"
    "Documents of shapes and their machine jobs for programs in C, and for languages
 that call C.")
shapemodel_package(codecs shapemodel-codecs libs "picture codecs of the shape model"
    "Decodes picture files for the shape model libraries, which load it when the
 first one is opened.")
shapemodel_package(development libshapemodel-dev libdevel "shape model for laser engraving, development files"
    "Headers, CMake package and pkg-config files of the shape model libraries.")
shapemodel_package(curves shapemodel-curves graphics "curve-fitting plug-in of the shape model"
    "Replaces traced polylines by few curves that stay beside them.")
shapemodel_package(program shapedoc graphics "documents of shapes for laser engraving from the command line"
    "Makes documents of drawings, texts and pictures, changes, checks and repairs
 them, and writes their lines for the machine.")
if(SHAPEMODEL_PYTHON_PATH)
    list(APPEND CPACK_COMPONENTS_ALL python)
    set(CPACK_DEBIAN_PYTHON_PACKAGE_ARCHITECTURE all)
    set(CPACK_DEBIAN_PYTHON_PACKAGE_SHLIBDEPS OFF)
    # Python's own tools write the byte code and take it away again; otherwise the first run would leave it behind.
    set(CPACK_DEBIAN_PYTHON_PACKAGE_CONTROL_EXTRA
        ${PROJECT_SOURCE_DIR}/packaging/python/postinst ${PROJECT_SOURCE_DIR}/packaging/python/prerm)
    set(python_needs "python3 (>= 3.9), python3-cffi-backend, python3-numpy")
    set(CPACK_DEBIAN_PYTHON_PACKAGE_DEPENDS
        "${python_needs}, libshapemodel-c${PROJECT_VERSION_MAJOR} (>= ${PROJECT_VERSION})")
    shapemodel_package(python python3-shapemodel python "shape model for laser engraving and cutting, for Python"
        "Documents of shapes in Python scripts and notebooks: NumPy arrays of their
 points and pixels, and jobs for the machine.")
endif()
shapemodel_package(workbench shapebench graphics "window for drawings that lasers engrave and cut"
    "Imports and draws shapes, arranges them, plays the machine's job and writes
 its G-code.")
# What a package of libraries tells the packages that are linked with them.
function(shapemodel_package_libraries component name) # libraries
    string(TOUPPER ${component} COMPONENT)
    set(control ${PROJECT_BINARY_DIR}/packaging/${component})
    foreach(library IN LISTS ARGN)
        string(APPEND shlibs "lib${library} ${PROJECT_VERSION_MAJOR} ${name} (>= ${PROJECT_VERSION})\n")
    endforeach()
    file(WRITE ${control}/shlibs "${shlibs}")
    configure_file(${PROJECT_SOURCE_DIR}/packaging/abi/${name}.symbols ${control}/symbols COPYONLY)
    set(CPACK_DEBIAN_${COMPONENT}_PACKAGE_CONTROL_EXTRA
        ${control}/shlibs ${control}/symbols ${PROJECT_SOURCE_DIR}/packaging/triggers PARENT_SCOPE)
endfunction()
shapemodel_package_libraries(runtime ${runtime} shapemodel shapedocument shapehost)
shapemodel_package_libraries(c ${c} shapemodel-c)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_RECOMMENDS "shapemodel-codecs, shapemodel-curves, qt6-image-formats-plugins")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "qt6-base-dev, qt6-5compat-dev, libopencv-core-dev, libopencv-imgproc-dev, libopencv-imgcodecs-dev")
# The program brings what desktops know documents by.
set(CPACK_DEBIAN_WORKBENCH_PACKAGE_RECOMMENDS "shapedoc, shapemodel-curves, qt6-image-formats-plugins")
set(CPACK_DEBIAN_CURVES_PACKAGE_ENHANCES ${runtime})
include(CPack)
