# Installation by components, the CMake package and the pkg-config files.
set(SHAPEMODEL_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/shapemodel)

# A host may look for the component shapemodel alone: the document library needs more.
set(SHAPEMODEL_COMPONENTS shapemodel shapedocument shapemodel-c)
set(libraries_of_shapemodel shapemodel shapehost)
set(libraries_of_shapedocument shapedocument)
set(libraries_of_shapemodel-c shapemodel-c)
set(package_of_shapemodel-c c) # others: runtime
foreach(component IN LISTS SHAPEMODEL_COMPONENTS)
    set(package runtime ${package_of_${component}})
    list(GET package -1 package)
    install(TARGETS ${libraries_of_${component}} EXPORT ${component}Targets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT ${package} NAMELINK_COMPONENT development
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development
        FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/shapemodel COMPONENT development)
    install(EXPORT ${component}Targets NAMESPACE shapemodel::
        DESTINATION ${SHAPEMODEL_PACKAGE_DIR} COMPONENT development)
endforeach()
if(TARGET shapemodel_picturecodecs)
    install(TARGETS shapemodel_picturecodecs
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}/shapemodel COMPONENT codecs)
endif()
# In a folder of its own, which the library looks into: nobody links a plug-in.
if(TARGET shapedoc)
    install(TARGETS shapemodel_curvesimulate
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}/shapemodel COMPONENT curves)
    install(TARGETS shapedoc RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT program)
    # Manual page and completions, where systems look for them.
    set(texts ${PROJECT_BINARY_DIR}/texts)
    install(FILES ${texts}/shapedoc.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT program)
    install(FILES ${texts}/shapedoc DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions COMPONENT program)
    set(zsh site-functions)
    if(CMAKE_INSTALL_PREFIX STREQUAL "/usr" AND EXISTS /etc/debian_version) # whose zsh looks nowhere else below /usr
        set(zsh vendor-completions)
    endif()
    install(FILES ${texts}/_shapedoc DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/${zsh} COMPONENT program)
    install(FILES ${texts}/shapedoc.fish DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d
        COMPONENT program)
    # Desktops know documents by their first bytes, and show them small.
    set(desktop ${PROJECT_SOURCE_DIR}/packaging/desktop)
    install(FILES ${desktop}/shapemodel.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages COMPONENT program)
    install(FILES ${desktop}/shapedoc.thumbnailer DESTINATION ${CMAKE_INSTALL_DATADIR}/thumbnailers COMPONENT program)
    install(FILES ${desktop}/application-x-shapemodel-document.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/mimetypes COMPONENT program)
endif()

if(TARGET shapebench)
    set(desktop ${PROJECT_SOURCE_DIR}/packaging/desktop)
    install(TARGETS shapebench RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT workbench)
    install(FILES ${desktop}/shapebench.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT workbench)
    install(FILES ${desktop}/shapebench.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT workbench)
    install(FILES ${PROJECT_SOURCE_DIR}/apps/workbench/look/icons/shapebench.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps COMPONENT workbench)
endif()

configure_package_config_file(cmake/shapemodelConfig.cmake.in ${PROJECT_BINARY_DIR}/shapemodelConfig.cmake
    INSTALL_DESTINATION ${SHAPEMODEL_PACKAGE_DIR})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/shapemodelConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES
    ${PROJECT_BINARY_DIR}/shapemodelConfig.cmake
    ${PROJECT_BINARY_DIR}/shapemodelConfigVersion.cmake
    ${PROJECT_SOURCE_DIR}/cmake/FindOpenCV.cmake
    DESTINATION ${SHAPEMODEL_PACKAGE_DIR} COMPONENT development)

# The prefix as seen from the folder of the files, however deep that lies, and the folders as seen from the prefix,
# whether they were named by a full path or not.
set(SHAPEMODEL_PKGCONFIG_DIR ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
file(RELATIVE_PATH SHAPEMODEL_PREFIX_FROM_PKGCONFIG ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" SHAPEMODEL_PREFIX_FROM_PKGCONFIG "${SHAPEMODEL_PREFIX_FROM_PKGCONFIG}")
file(RELATIVE_PATH SHAPEMODEL_LIB_FOLDER ${CMAKE_INSTALL_PREFIX} ${CMAKE_INSTALL_FULL_LIBDIR})
file(RELATIVE_PATH SHAPEMODEL_INCLUDE_FOLDER ${CMAKE_INSTALL_PREFIX} ${CMAKE_INSTALL_FULL_INCLUDEDIR})
get_target_property(SHAPEMODEL_OPENCV_INCLUDE_DIR opencv_core INTERFACE_INCLUDE_DIRECTORIES)
list(GET SHAPEMODEL_OPENCV_INCLUDE_DIR 0 SHAPEMODEL_OPENCV_INCLUDE_DIR)
if(NOT BUILD_SHARED_LIBS) # what a shared library needs comes with it, and need not be there to build a host
    set(SHAPEMODEL_PRIVATE_CODECS "Libs.private: -lopencv_imgproc -lopencv_imgcodecs")
    string(REGEX REPLACE "([<>]=)" " \\1 " renderer "${SHAPEMODEL_RENDERER_MODULES}")
    list(JOIN renderer " " renderer)
    set(SHAPEMODEL_PRIVATE_RENDERER "Libs.private: -lopencv_imgproc\nRequires.private: Qt6Svg ${renderer}")
    set(SHAPEMODEL_C_REQUIRES "Requires: shapedocument = ${PROJECT_VERSION}\nLibs.private: -lstdc++")
endif()
foreach(library shapemodel shapedocument shapemodel-c)
    configure_file(cmake/${library}.pc.in ${PROJECT_BINARY_DIR}/${library}.pc @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/${library}.pc DESTINATION ${SHAPEMODEL_PKGCONFIG_DIR} COMPONENT development)
endforeach()
