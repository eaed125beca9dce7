include(${CMAKE_CURRENT_LIST_DIR}/run_program.cmake)

# What PAGE says of the languages is run as it stands there, then what must be true of it.
file(READ ${PAGE} page)

# run_code(LANGUAGE SUFFIX CHECK COMMAND...)
function(run_code language suffix check)
  set(rest "${page}")
  set(code "")
  string(FIND "${rest}" "```${language}\n" at)
  while(NOT at EQUAL -1)
    string(LENGTH "```${language}\n" fence)
    math(EXPR at "${at} + ${fence}")
    string(SUBSTRING "${rest}" ${at} -1 rest)
    string(FIND "${rest}" "```" end)
    string(SUBSTRING "${rest}" 0 ${end} block)
    string(APPEND code "${block}")
    string(FIND "${rest}" "```${language}\n" at)
  endwhile()
  file(WRITE ${WORK}/page.${suffix} "${code}${check}")
  execute_process(COMMAND ${ARGN} ${WORK}/page.${suffix} WORKING_DIRECTORY ${WORK}
    RESULT_VARIABLE fault OUTPUT_VARIABLE said ERROR_VARIABLE said)
  if(fault)
    message(SEND_ERROR "${language}: ${said}")
  endif()
endfunction()

file(COPY_FILE ${SAMPLES}/mtcars.csv ${WORK}/cars.csv)
run(0 pls ${WORK}/cars.csv --y mpg --components 2 --out ${WORK}/results)
find_program(rscript Rscript)
execute_process(COMMAND /usr/bin/python3 -c "import pandas" RESULT_VARIABLE has_no_pandas
  OUTPUT_QUIET ERROR_QUIET)
if(NOT rscript AND has_no_pandas)
  message("there is neither R nor pandas")
endif()
if(rscript)
  run_code(r R "stopifnot(
    identical(names(observations)[c(1, 2, 3, 9, 10)],
              c('ONum', 'ONam', 't[1]', 'u[2]', 'DModY')),
    all(dim(scores) == c(32, 2)), abs(scores['Mazda RX4', 1] - 0.6933) < 1e-4,
    identical(important$VNam[1], 'cyl'), nrow(unusual) == sum(observations$DModX > limits$Value[1]),
    max(abs(residuals(fitted))) < 1e-4)" ${rscript} --vanilla)
  run(0 pls ${WORK}/cars.csv --y mpg --components 2 --json)
  expect_json(32 observations)
endif()
if(NOT has_no_pandas)
  run_code(python py "
assert list(observations)[:3] == ['ONum', 'ONam', 't[1]'], list(observations)
assert scores.shape == (32, 2) and abs(scores.loc['Mazda RX4', 't[1]'] - 0.6933) < 1e-4
assert important['VNam'].iloc[0] == 'cyl'
assert len(unusual) == sum(observations['DModX'] > limits['DCritWS', 'DModX', 0.95])
" /usr/bin/python3)
  says("YPred.mpg." stats ${WORK}/again.csv)
endif()
