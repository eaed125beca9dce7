include(${CMAKE_CURRENT_LIST_DIR}/run_program.cmake)

# The grid of every sample, by standard output and by -o.
file(GLOB samples ${SAMPLES}/*.vdo)
list(LENGTH samples count)
if(count LESS 5)
  message(SEND_ERROR "only ${count} samples")
endif()
foreach(sample IN LISTS samples)
  get_filename_component(name ${sample} NAME_WE)
  execute_process(COMMAND ${PROGRAM} import ${sample}
    RESULT_VARIABLE result OUTPUT_FILE ${WORK}/${name}.csv)
  expect("${result}" "^0$")
  expect_same_files(${WORK}/${name}.csv ${SAMPLES}/${name}.csv)
endforeach()
run(0 import ${SAMPLES}/iris.vdo -o ${WORK}/o.csv)
expect("${out}" "^$")
expect_same_files(${WORK}/o.csv ${SAMPLES}/iris.csv)

# Files that cannot be imported say so in one line, and no output is left.
file(WRITE ${WORK}/text.vdo "no project file")
file(WRITE ${WORK}/empty.vdo "")
foreach(bad text empty none)
  run(1 import ${WORK}/${bad}.vdo -o ${WORK}/bad.csv)
  expect("${err}" "^zemva: [^\n]*${bad}.vdo: not a VARDO-P File \\(pre version 9\\)\r?\n$")
endforeach()
run(1 import ${SAMPLES}/iris.vdo --plugin ${WORK}/none.so)
run(1 import ${SAMPLES}/iris.vdo -o ${WORK}/no/such/folder.csv)
if(EXISTS ${WORK}/bad.csv)
  message(SEND_ERROR "a failed import left a file")
endif()

# Wrong usage shows the right one.
foreach(wrong "import" "import;a.vdo;b.vdo" "import;-x;a.vdo" "import;a.vdo;-o" "nonsense" "")
  run(2 ${wrong})
  expect("${err}" "usage: zemva import FILE.vdo")
endforeach()
run(0 --help)
expect("${out}" "usage: zemva import FILE.vdo")
