# Flags of every target of this project; never exported to hosts.
add_library(shapemodel_flags INTERFACE)
target_compile_options(shapemodel_flags INTERFACE
    -Wall -Wextra -Wpedantic -Wswitch -Wshadow -Wnon-virtual-dtor
    # One rounding per operation: results must not depend on where the compiler contracts.
    -ffp-contract=off)
if(SHAPEMODEL_SANITIZE)
    target_compile_options(shapemodel_flags INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
    target_link_options(shapemodel_flags INTERFACE -fsanitize=address,undefined)
endif()
