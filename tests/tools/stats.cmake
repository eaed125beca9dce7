include(${CMAKE_CURRENT_LIST_DIR}/run_program.cmake)

# The statistics are those that other programs give.
set(statistics "")
foreach(arguments "iris.vdo" "airquality.vdo;--all" "airquality.vdo;--all;--json")
  run(0 stats ${SAMPLES}/${arguments})
  string(APPEND statistics "${out}\n")
endforeach()
expect_golden(stats.txt "${statistics}")

file(WRITE ${WORK}/missing.csv ",,x,y\n1,a,,1\n2,b,,2\n")
run(0 convert ${WORK}/missing.csv ${WORK}/missing.vdo)
run(0 stats ${WORK}/missing.vdo)
set(from_project "${out}")
expect("${out}" "\n    1  x +0 +100 +N/A +N/A +N/A +N/A +N/A\n")

# A table as it is, by its contents and from standard input; what it was taken for is said.
file(COPY_FILE ${WORK}/missing.csv ${WORK}/table.vdo)
run(0 stats ${WORK}/table.vdo)
expect("${err}" "^zemva: [^\n]*table.vdo: 2 observations .numbers from column 1, names from column 2., 2 variables\r?\n$")
string(COMPARE EQUAL "${out}" "${from_project}" is_same)
expect(${is_same} 1)
execute_process(COMMAND ${PROGRAM} stats - --drop x INPUT_FILE ${WORK}/missing.csv
  RESULT_VARIABLE result OUTPUT_VARIABLE out ERROR_VARIABLE err)
expect("${result}${out}" "^0.*\n    1  y +2 ")
run(1 stats ${SAMPLES}/iris.csv --decimal comma)
run(0 stats ${WORK}/missing.vdo --json)
expect_json("" 0 Mean)
run(2 stats ${SAMPLES}/iris.csv --decimal dot)
run(2 stats ${SAMPLES}/iris.csv --delimiter xy)

fails(1 "none.vdo: DIO: File open error. \\(2004\\)" stats ${WORK}/none.vdo)
run(2 stats)
run(2 stats --every ${SAMPLES}/iris.vdo)
