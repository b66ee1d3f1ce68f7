# For the check of the binary interface: a module with the layouts of all public types.
find_package(Python3 COMPONENTS Interpreter)
if(Python3_FOUND AND CMAKE_CXX_COMPILER_ID STREQUAL GNU) # whose description of layouts is kept
    set(script ${PROJECT_SOURCE_DIR}/scripts/public_types.py)
    add_custom_command(OUTPUT public_types.cpp COMMAND ${Python3_EXECUTABLE} ${script} >public_types.cpp
        DEPENDS ${script} src/CMakeLists.txt libs/shapedocument/CMakeLists.txt)
    add_library(public_types MODULE EXCLUDE_FROM_ALL public_types.cpp)
    target_compile_options(public_types PRIVATE -O0 -g -femit-class-debug-always -fvisibility=default)
    set_target_properties(public_types PROPERTIES LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/abi)
    target_link_libraries(public_types PRIVATE shapedocument shapemodel)
endif()
