include(${CMAKE_CURRENT_LIST_DIR}/run_program.cmake)

# The values are those of R 4.2.2, but for the quartiles, which it defines otherwise.
run(0 stats ${SAMPLES}/airquality.vdo)
expect("${out}" "^ Var   N   MV%        Min        Max    Min/Max       Mean         SD\n")
foreach(line
    "   1   116 24.183      1.000    168.000      0.006     42.129     32.988\n"
    "   2   146  4.575      7.000    334.000      0.021    185.932     90.058\n"
    "   6   153  0.000      1.000     31.000      0.032     15.804      8.865\n$")
  expect("${out}" "${line}")
endforeach()

run(0 stats --all ${SAMPLES}/airquality.vdo)
expect("${out}" "\n   4   153  0.000 .*     79.000     72.000     85.000      9.465     -0.378     -0.404\n")

run(1 stats ${WORK}/none.vdo)
expect("${err}" "none.vdo: DIO: File open error. \\(2004\\)")
run(2 stats)
run(2 stats --each ${SAMPLES}/airquality.vdo)
