include(${CMAKE_CURRENT_LIST_DIR}/run_program.cmake)

# NATIVE is the program of this system: what both write of a model is the same, byte for byte.
if(NOT EXISTS ${NATIVE})
  message("there is no ${NATIVE}")
  return()
endif()

# compare(FILE ARGUMENT...)
function(compare file)
  run(0 pc ${file} ${ARGN} --test ${file} --out ${WORK}/there)
  set(PROGRAM ${NATIVE})
  run(0 pc ${file} ${ARGN} --test ${file} --out ${WORK}/here)
  foreach(table components observations variables predictions)
    expect_same_files(${WORK}/there/${table}.csv ${WORK}/here/${table}.csv)
  endforeach()
endfunction()

file(GLOB samples ${SAMPLES}/*.vdo)
foreach(sample IN LISTS samples)
  compare(${sample})
  compare(${sample} --components 3 --ncv 5 --scale ParN)
endforeach()
