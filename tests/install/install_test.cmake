# Whether an installation of the build in BUILD can be used by others, also after it was moved.
cmake_minimum_required(VERSION 3.23)

set(work ${BUILD}/tests/install/work)
set(prefix ${work}/moved)

function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE log ERROR_VARIABLE log)
  if(result)
    message(FATAL_ERROR "${ARGN}\nfailed (${result}):\n${log}")
  endif()
endfunction()

# Runs a program and compares what it prints with the EXPECTED text.
function(expect_output expected)
  execute_process(COMMAND ${EMULATOR} ${ARGN} OUTPUT_VARIABLE output COMMAND_ERROR_IS_FATAL ANY)
  string(REPLACE "\r" "" output "${output}")
  if(NOT output STREQUAL expected)
    message(SEND_ERROR "${ARGN}\nprinted\n${output}\nin place of\n${expected}")
  endif()
endfunction()

file(REMOVE_RECURSE ${work})
file(MAKE_DIRECTORY ${work})
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${work}/made)
file(RENAME ${work}/made ${prefix})

function(configure source build)
  run(${CMAKE_COMMAND} -G ${GENERATOR} -S ${source} -B ${build} -D CMAKE_TOOLCHAIN_FILE=${TOOLCHAIN}
    -D CMAKE_C_COMPILER=${C} -D CMAKE_CXX_COMPILER=${CXX} ${ARGN})
endfunction()

# The programs of a consumer with what is installed in FOLDER. They stand beside the installed one,
# where Windows finds the library.
function(expect_usable folder)
  configure(${CMAKE_CURRENT_LIST_DIR}/consumer ${folder}-consumer
    -D zemva_ROOT=${folder} -D CMAKE_RUNTIME_OUTPUT_DIRECTORY=${folder}/bin)
  run(${CMAKE_COMMAND} --build ${folder}-consumer --target ${ARGN})
  foreach(program classes functions)
    expect_output("50 4 Alabama 13.2\n" ${folder}/bin/${program}${SUFFIX} ${SAMPLE}.vdo)
  endforeach()
endfunction()

expect_usable(${prefix} all)
file(READ ${SAMPLE}.csv grid)
expect_output("${grid}" ${prefix}/bin/zemva${SUFFIX} import ${SAMPLE}.vdo)

# The static library, of the objects that are there: to compile them once more takes minutes.
configure(${SOURCE} ${work}/static -D BUILD_SHARED_LIBS=OFF -D ZEMVA_TESTS=OFF)
run(${AR} qcs ${work}/static/lib/libzemva.a @${OBJECTS})
run(${CMAKE_COMMAND} --install ${work}/static --prefix ${work}/archive --component library)
expect_usable(${work}/archive classes functions)

find_program(PKG_CONFIG pkg-config)
if(PKG_CONFIG AND NOT TOOLCHAIN)
  set(ENV{PKG_CONFIG_PATH} ${prefix}/${LIBDIR}/pkgconfig)
  execute_process(COMMAND ${PKG_CONFIG} --cflags --libs zemva
    OUTPUT_VARIABLE flags COMMAND_ERROR_IS_FATAL ANY)
  separate_arguments(flags UNIX_COMMAND ${flags})
  run(${CXX} ${CMAKE_CURRENT_LIST_DIR}/consumer/classes.cpp ${flags}
    -Wl,-rpath,${prefix}/${LIBDIR} -o ${work}/by_pkg_config)
  expect_output("50 4 Alabama 13.2\n" ${work}/by_pkg_config ${SAMPLE}.vdo)
endif()
