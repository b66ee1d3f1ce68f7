# Installs the build into a clean prefix and builds programs against it: the consumer by pkg-config, the example by
# pkg-config and by the CMake package.
cmake_minimum_required(VERSION 3.25)
set(work ${BUILD_DIR}/package-test)
set(prefix ${work}/prefix)
file(REMOVE_RECURSE ${work})
unset(ENV{SHAPEHOST_THEME})

function(run)
    execute_process(COMMAND ${ARGV} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix})
file(GLOB ZSH_FOLDER RELATIVE ${prefix}/share ${prefix}/share/zsh/*)
foreach(text man/man1/shapedoc.1 bash-completion/completions/shapedoc ${ZSH_FOLDER}/_shapedoc
    fish/vendor_completions.d/shapedoc.fish)
    file(SIZE ${prefix}/share/${text} size)
    if(size LESS 1000)
        message(FATAL_ERROR "share/${text} has ${size} bytes")
    endif()
endforeach()

set(ENV{PKG_CONFIG_PATH} ${prefix}/${LIBDIR}/pkgconfig)
# What shared libraries need comes with them: the development package does not bring its headers.
execute_process(COMMAND pkg-config --print-requires-private shapedocument OUTPUT_VARIABLE needed
    COMMAND_ERROR_IS_FATAL ANY)
if(needed)
    message(FATAL_ERROR "shapedocument.pc asks hosts for ${needed}")
endif()
function(build_by_pkg_config package source program)
    execute_process(COMMAND pkg-config --cflags --libs ${package} OUTPUT_VARIABLE options
        OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    separate_arguments(options UNIX_COMMAND "${options}")
    run(${CXX} -std=c++20 -fPIC ${source} -o ${program} ${options} -Wl,-rpath,${prefix}/${LIBDIR})
endfunction()
build_by_pkg_config(shapemodel ${CONSUMER_DIR}/main.cpp ${work}/by-pkg-config)
build_by_pkg_config(shapedocument ${EXAMPLES_DIR}/open_draw_save.cpp ${work}/example-by-pkg-config)
run(${work}/by-pkg-config)
execute_process(COMMAND pkg-config --cflags --libs shapemodel-c OUTPUT_VARIABLE options
    OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
separate_arguments(options UNIX_COMMAND "${options}")
run(cc -std=c99 -pedantic ${EXAMPLES_DIR}/main_job.c -o ${work}/c-by-pkg-config ${options}
    -Wl,-rpath,${prefix}/${LIBDIR})

# A project in C alone takes the C interface without C++ or Qt.
file(WRITE ${work}/c/CMakeLists.txt "cmake_minimum_required(VERSION 3.25)\nproject(c C)\n"
    "find_package(shapemodel CONFIG REQUIRED COMPONENTS shapemodel-c)\n"
    "add_executable(c ${EXAMPLES_DIR}/main_job.c)\ntarget_link_libraries(c PRIVATE shapemodel::shapemodel-c)\n")
run(${CMAKE_COMMAND} -S ${work}/c -B ${work}/c -G ${GENERATOR} -D CMAKE_PREFIX_PATH=${prefix}
    -D CMAKE_DISABLE_FIND_PACKAGE_Qt6=ON)
run(${CMAKE_COMMAND} --build ${work}/c)

# The example: what it saves is whole, and its first shape lies 10 mm further right.
run(${CMAKE_COMMAND} -S ${EXAMPLES_DIR} -B ${work}/examples -G ${GENERATOR} -D CMAKE_PREFIX_PATH=${prefix}
    -D CMAKE_CXX_COMPILER=${CXX} -D CMAKE_BUILD_TYPE=${BUILD_TYPE})
run(${CMAKE_COMMAND} --build ${work}/examples)
set(shapedoc ${prefix}/bin/shapedoc)
set(ENV{QT_QPA_PLATFORM} offscreen)
run(${EXAMPLES_DIR}/../scripts/run_examples.sh ${work}/examples ${shapedoc} ${SAMPLES_DIR} ${work}/ran)
run(${shapedoc} import ${SAMPLES_DIR}/rosette.svg -o ${work}/before.shapes)
run(${work}/examples/open_draw_save ${work}/before.shapes ${work}/drawn.png ${work}/after.shapes)
run(${shapedoc} check ${work}/after.shapes)
file(SIZE ${work}/drawn.png drawn)
foreach(document before after)
    execute_process(COMMAND ${shapedoc} info --json ${work}/${document}.shapes
        OUTPUT_VARIABLE facts COMMAND_ERROR_IS_FATAL ANY)
    string(JSON ${document} GET ${facts} shapes 0 rect x)
endforeach()
if(drawn LESS 10000 OR NOT (before EQUAL 8 AND after EQUAL 18))
    message(FATAL_ERROR "open_draw_save: ${drawn} bytes drawn, x ${before} became ${after}")
endif()
