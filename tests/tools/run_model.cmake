# What the tests of commands that fit a model share. MODEL is the command.
include(${CMAKE_CURRENT_LIST_DIR}/run_program.cmake)

# fit(ARGUMENT...): runs the command with its files in WORK/out.
macro(fit)
  file(REMOVE_RECURSE ${WORK}/out)
  run(0 ${MODEL} ${ARGN} --out ${WORK}/out)
endmacro()

# expect_in(TABLE REGEX): what a file of the last fit must hold.
function(expect_in table regex)
  file(READ ${WORK}/out/${table}.csv text)
  expect("${text}" "${regex}")
endfunction()

# expect_all(NAME): the listing, the messages and the tables of the last fit, as golden/NAME has them.
function(expect_all name)
  string(REGEX REPLACE "\n Created[^\n]*" "" all "${out}\n${err}")
  string(REPLACE "\r\n" "\n" all "${all}")
  file(GLOB tables ${WORK}/out/*.csv)
  foreach(table IN LISTS tables)
    file(READ ${table} text)
    string(APPEND all "\n${text}")
  endforeach()
  string(REPLACE "${SAMPLES}/" "" all "${all}")
  string(REPLACE "${WORK}/" "" all "${all}")
  expect_golden(${name} "${all}")
endfunction()
