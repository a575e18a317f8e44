# Builds and runs host.c as projects outside of velk do: with the package and with pkg-config, both from an
# installed tree that was moved, and with velk as a subdirectory.
cmake_minimum_required(VERSION 3.22)
set(here ${CMAKE_CURRENT_LIST_DIR})
set(ENV{CCACHE_NOHASHDIR} 1)

function(run)
    execute_process(COMMAND ${ARGN} COMMAND_ECHO STDOUT OUTPUT_VARIABLE printed COMMAND_ERROR_IS_FATAL ANY)
    set(printed ${printed} PARENT_SCOPE)
endfunction()

function(build_and_run consumer)
    run(${CMAKE_COMMAND} -S ${here}/${consumer} -B ${WORK}/${consumer} -G ${GENERATOR} ${COMPILERS} ${ARGN})
    run(${CMAKE_COMMAND} --build ${WORK}/${consumer} --parallel 2 --target host)
    run(${WORK}/${consumer}/host)
endfunction()

file(REMOVE_RECURSE ${WORK})
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/installed)
file(RENAME ${WORK}/installed ${WORK}/moved)
build_and_run(package -DCMAKE_PREFIX_PATH=${WORK}/moved)

find_program(pkg_config pkg-config)
if(pkg_config)
    set(ENV{PKG_CONFIG_PATH} ${WORK}/moved/${LIBDIR}/pkgconfig)
    run(${pkg_config} --cflags --libs velk)
    separate_arguments(flags UNIX_COMMAND "${printed}")
    run(${C_COMPILER} ${here}/host.c ${flags} -Wl,-rpath,${WORK}/moved/${LIBDIR} -o ${WORK}/pkgconfig_host)
    run(${WORK}/pkgconfig_host)
endif()

build_and_run(subdirectory -DVELK_SOURCE=${SOURCE})
