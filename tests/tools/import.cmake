include(${CMAKE_CURRENT_LIST_DIR}/run_program.cmake)

# The grid of every sample.
file(GLOB samples ${SAMPLES}/*.vdo)
expect("${samples}" "USArrests.*airquality.*iris.*mtcars.*spectra")
foreach(sample IN LISTS samples)
  get_filename_component(name ${sample} NAME_WE)
  execute_process(COMMAND ${PROGRAM} import ${sample}
    RESULT_VARIABLE result OUTPUT_FILE ${WORK}/${name}.csv)
  expect("${result}" "^0$")
  expect_same_files(${WORK}/${name}.csv ${SAMPLES}/${name}.csv)
endforeach()

# Files that cannot be imported say so in one line, and no output is left.
file(WRITE ${WORK}/text.vdo "no project file")
file(WRITE ${WORK}/empty.vdo "")
foreach(bad text empty)
  fails(1 "^zemva: [^\n]*${bad}.vdo: not a VARDO-P File \\(pre version 9\\)[^\n]*\r?\n$" import ${WORK}/${bad}.vdo -o ${WORK}/bad.csv)
endforeach()
fails(1 "^zemva: [^\n]*none.vdo: does not exist\r?\n$" import ${WORK}/none.vdo)
fails(1 ": is no file\r?\n$" import ${WORK})
file(COPY ${SAMPLES}/iris.vdo DESTINATION ${WORK})
run(1 import ${WORK}/iris.vdo -o ${WORK}/iris.vdo)
expect_same_files(${WORK}/iris.vdo ${SAMPLES}/iris.vdo)
if(EXISTS /dev/full AND NOT PROGRAM MATCHES "wine")
  execute_process(COMMAND ${PROGRAM} import ${SAMPLES}/spectra.vdo
    RESULT_VARIABLE result OUTPUT_FILE /dev/full ERROR_VARIABLE err)
  expect("${result}" "^1$")
  expect("${err}" "standard output: cannot be written")
endif()
# Any other copy of the library serves as the plug-in, beside the one that the program is linked with.
cmake_path(GET LIBRARY EXTENSION LAST_ONLY suffix)
file(COPY_FILE ${LIBRARY} ${WORK}/copy${suffix})
says("^$" import ${SAMPLES}/iris.vdo -o ${WORK}/copy.csv --plugin ${WORK}/copy${suffix})
expect_same_files(${WORK}/copy.csv ${SAMPLES}/iris.csv)
run(1 import ${SAMPLES}/iris.vdo --plugin ${WORK}/none.so)
run(1 import ${SAMPLES}/iris.vdo -o ${WORK}/no/such/folder.csv)
expect_none(${WORK}/bad.csv)

# Wrong usage shows the right one.
foreach(wrong "import" "import;a.vdo;b.vdo" "import;-x;a.vdo" "import;a.vdo;-o" "nonsense" "")
  fails(2 "^zemva: [^\n]+\r?\nusage: zemva (import FILE.vdo|COMMAND) \\[options\\]\r?\n'zemva help" ${wrong})
endforeach()
says("^,,Sepal.Length," import ${SAMPLES}/iris.vdo -o -)
