# What the program's tests share. PROGRAM is the command, SAMPLES the samples, WORK a folder.
file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})
# No settings but those of the test.
set(ENV{XDG_CONFIG_HOME} ${WORK})

# run(EXIT_STATUS ARGUMENT...): runs the program; leaves what it wrote in `out` and `err`.
macro(run exit_status)
  execute_process(COMMAND ${PROGRAM} ${ARGN}
    RESULT_VARIABLE result OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT result STREQUAL "${exit_status}")
    message(SEND_ERROR "zemva ${ARGN}: exit status ${result}, not ${exit_status}\n${err}")
  endif()
endmacro()

# expect(TEXT REGEX): the text must match.
function(expect text regex)
  if(NOT "${text}" MATCHES "${regex}")
    message(SEND_ERROR "'${regex}' is not in:\n${text}")
  endif()
endfunction()

# says(REGEX ARGUMENT...): what the program writes when all is well.
function(says regex)
  run(0 ${ARGN})
  expect("${out}" "${regex}")
endfunction()

# fails(STATUS REGEX ARGUMENT...): what the program says of what it cannot do, with nothing else written.
function(fails status message)
  run(${status} ${ARGN})
  expect("${err}" "${message}")
  expect("${out}" "^$")
endfunction()

# expect_json(VALUE PATH...): what stands at a place of `out`, which must be JSON.
function(expect_json value)
  string(JSON found ERROR_VARIABLE fault GET "${out}" ${ARGN})
  if(fault OR NOT found STREQUAL "${value}")
    message(SEND_ERROR "'${found}' ${fault} is not '${value}' at ${ARGN} of:\n${out}")
  endif()
endfunction()

# expect_same_files(A B): byte for byte.
macro(expect_same_files a b)
  execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files ${a} ${b} RESULT_VARIABLE different)
  if(different)
    message(SEND_ERROR "${a} is not ${b}")
  endif()
endmacro()

# expect_none(FILE...): there is none of them.
function(expect_none)
  foreach(file IN LISTS ARGN)
    if(EXISTS ${file})
      message(SEND_ERROR "there is ${file}")
    endif()
  endforeach()
endfunction()

# expect_golden(NAME TEXT): the text is that of golden/NAME. What it is instead is left in WORK.
function(expect_golden name text)
  file(WRITE ${WORK}/${name} "${text}")
  expect_same_files(${WORK}/${name} ${CMAKE_CURRENT_LIST_DIR}/golden/${name})
endfunction()
