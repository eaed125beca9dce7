include(${CMAKE_CURRENT_LIST_DIR}/run_program.cmake)

# Means and standard deviations as other statistics programs give them for these tables.
run(0 stats ${SAMPLES}/iris.vdo)
expect("${out}" "^  Var  Name  +N +% MisVal +Min +Max +Min/Max +Mean +StdDev\n")
expect("${out}" "\n    1  Sepal.Length +150 +0 +4.3 +7.9 +0.544304 +5.84333 +0.828066\n")
expect("${out}" "\n    4  Petal.Width +150 +0 +0.1 +2.5 +0.04 +1.19933 +0.762238\n")
run(0 stats --all ${SAMPLES}/airquality.vdo)
expect("${out}" "% MisVal +Min +Max +Min/Max +Mean +Median +25% +75% +StdDev +Skewness +Kurtosis +Prob")
expect("${out}" "\n    1  Ozone +116 +24.183 +1 +168 +0.00595238 +42.1293 +31.5 +18 +63.5 +32.9879 ")

file(WRITE ${WORK}/missing.csv ",,x,y\n1,a,,1\n2,b,,2\n")
run(0 convert ${WORK}/missing.csv ${WORK}/missing.vdo)
run(0 stats ${WORK}/missing.vdo)
set(from_project "${out}")
expect("${out}" "\n    1  x +0 +100 +N/A +N/A +N/A +N/A +N/A\n")

# A table as it is, by its contents and from standard input; what it was taken for is said.
file(COPY_FILE ${WORK}/missing.csv ${WORK}/table.vdo)
run(0 stats ${WORK}/table.vdo)
expect("${err}" "^zemva: [^\n]*table.vdo: 2 observations .numbers from column 1, names from column 2., 2 variables\r?\n$")
if(NOT "${out}" STREQUAL "${from_project}")
  message(SEND_ERROR "the statistics of a table are not those of its data set")
endif()
execute_process(COMMAND ${PROGRAM} stats - --drop x INPUT_FILE ${WORK}/missing.csv
  RESULT_VARIABLE result OUTPUT_VARIABLE out ERROR_VARIABLE err)
expect("${result}${out}" "^0.*\n    1  y +2 ")
run(1 stats ${SAMPLES}/iris.csv --decimal comma)
run(0 stats ${WORK}/missing.vdo --json)
expect_json(y 1 Name)
expect_json(1.5 1 Mean)
expect_json("" 0 Mean)
run(2 stats ${SAMPLES}/iris.csv --decimal dot)
run(2 stats ${SAMPLES}/iris.csv --delimiter xy)

run(1 stats ${WORK}/none.vdo)
expect("${err}" "none.vdo: DIO: File open error. \\(2004\\)")
run(2 stats)
run(2 stats --every ${SAMPLES}/iris.vdo)
