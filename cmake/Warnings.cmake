# Flags of every target of this project; never exported to hosts.
add_library(shapemodel_flags INTERFACE)
target_compile_options(shapemodel_flags INTERFACE
    -Wall -Wextra -Wpedantic -Wswitch -Wshadow -Wnon-virtual-dtor -Wdate-time
    # libstdc++ up to 12 sorts by a function that it has marked itself as deprecated, which Clang from 15 on says of us.
    $<$<AND:$<CXX_COMPILER_ID:Clang>,$<VERSION_GREATER_EQUAL:$<CXX_COMPILER_VERSION>,15>>:-Wno-deprecated-declarations>
    $<$<CONFIG:Release>:-ffile-prefix-map=${PROJECT_SOURCE_DIR}/=>
    $<$<CONFIG:Release>:-ffile-prefix-map=${PROJECT_BINARY_DIR}/=>
    # One rounding per operation: results must not depend on where the compiler contracts.
    -ffp-contract=off)
# Of what is installed: tests may count with either sign.
add_library(shapemodel_strict_flags INTERFACE)
target_link_libraries(shapemodel_strict_flags INTERFACE shapemodel_flags)
target_compile_options(shapemodel_strict_flags INTERFACE -Wconversion -Wsign-conversion)
if(SHAPEMODEL_SANITIZE)
    target_compile_definitions(shapemodel_flags INTERFACE SHAPEMODEL_SANITIZED) # for tests that need to know
endif()
if(SHAPEMODEL_SANITIZE OR SHAPEMODEL_FUZZ)
    set(sanitizers -fsanitize=address,undefined,float-cast-overflow)
    if(SHAPEMODEL_FUZZ)
        string(APPEND sanitizers ,fuzzer-no-link)
    endif()
    target_compile_options(shapemodel_flags INTERFACE
        ${sanitizers} -fno-sanitize-recover=undefined,float-cast-overflow -fno-omit-frame-pointer)
    target_link_options(shapemodel_flags INTERFACE ${sanitizers})
endif()
if(SHAPEMODEL_COVERAGE)
    target_compile_options(shapemodel_flags INTERFACE -fprofile-instr-generate -fcoverage-mapping)
    target_link_options(shapemodel_flags INTERFACE -fprofile-instr-generate)
endif()
