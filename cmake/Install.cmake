# Installation, the CMake package and the pkg-config file.
set(SHAPEMODEL_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/shapemodel)

install(TARGETS shapemodel shapehost shapedocument EXPORT shapemodelTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/shapemodel)
install(TARGETS shapedoc RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
# Manual page and completions, where systems look for them.
install(FILES ${PROJECT_BINARY_DIR}/texts/shapedoc.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${PROJECT_BINARY_DIR}/texts/shapedoc DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
install(FILES ${PROJECT_BINARY_DIR}/texts/_shapedoc DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/site-functions)
install(FILES ${PROJECT_BINARY_DIR}/texts/shapedoc.fish DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
install(EXPORT shapemodelTargets NAMESPACE shapemodel:: DESTINATION ${SHAPEMODEL_PACKAGE_DIR})

configure_package_config_file(cmake/shapemodelConfig.cmake.in ${PROJECT_BINARY_DIR}/shapemodelConfig.cmake
    INSTALL_DESTINATION ${SHAPEMODEL_PACKAGE_DIR})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/shapemodelConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES
    ${PROJECT_BINARY_DIR}/shapemodelConfig.cmake
    ${PROJECT_BINARY_DIR}/shapemodelConfigVersion.cmake
    ${PROJECT_SOURCE_DIR}/cmake/FindOpenCV.cmake
    DESTINATION ${SHAPEMODEL_PACKAGE_DIR})

get_target_property(SHAPEMODEL_OPENCV_INCLUDE_DIR opencv_core INTERFACE_INCLUDE_DIRECTORIES)
list(GET SHAPEMODEL_OPENCV_INCLUDE_DIR 0 SHAPEMODEL_OPENCV_INCLUDE_DIR)
configure_file(cmake/shapemodel.pc.in ${PROJECT_BINARY_DIR}/shapemodel.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/shapemodel.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
