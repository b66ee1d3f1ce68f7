# Which symbols leave a library: those of scripts/exported_names.txt alone. Without this, templates of the standard
# library that it happens to use would be exported beside them.
set(SHAPEMODEL_EXPORT_MAP ${PROJECT_BINARY_DIR}/exports.map)
file(STRINGS ${PROJECT_SOURCE_DIR}/scripts/exported_names.txt names REGEX "^[A-Za-z]")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/scripts/exported_names.txt)
set(map "{\nglobal: extern \"C++\" {\n")
foreach(name IN LISTS names)
    if(name MATCHES "^(.*)\\(\\)$")
        string(APPEND map "  ${CMAKE_MATCH_1}?*;\n")
    else()
        string(APPEND map "  ${name}::*;\n  *?for?${name};\n  *?for?${name}::*;\n  *?thunk?to?${name}::*;\n")
    endif()
endforeach()
file(CONFIGURE OUTPUT ${SHAPEMODEL_EXPORT_MAP} CONTENT "${map}};\nlocal: *;\n};\n" @ONLY)

# The C interface exports the functions of its header, which have one prefix.
set(SHAPEMODEL_C_EXPORT_MAP ${PROJECT_BINARY_DIR}/exports_c.map)
file(CONFIGURE OUTPUT ${SHAPEMODEL_C_EXPORT_MAP} CONTENT "{\nglobal: sm_*;\nlocal: *;\n};\n" @ONLY)

# Nothing is imported from a static library.
function(shapemodel_mark_static target)
    if(NOT BUILD_SHARED_LIBS)
        string(TOUPPER ${target} NAME)
        target_compile_definitions(${target} PUBLIC ${NAME}_STATIC_DEFINE)
    endif()
endfunction()

# shapemodel_limit_symbols(TARGET [MAP])
function(shapemodel_limit_symbols target)
    set(map ${SHAPEMODEL_EXPORT_MAP} ${ARGN})
    list(GET map -1 map)
    # Sanitizers have symbols of their own, in and out.
    if(BUILD_SHARED_LIBS AND NOT SHAPEMODEL_SANITIZE AND NOT SHAPEMODEL_FUZZ AND NOT SHAPEMODEL_COVERAGE)
        # z,defs: a symbol that nothing defines is an error here, not at a host's start.
        target_link_options(${target} PRIVATE -Wl,-z,defs -Wl,--version-script=${map})
        set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS ${map})
    endif()
endfunction()
