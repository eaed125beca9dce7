include(${CMAKE_CURRENT_LIST_DIR}/run_program.cmake)

run(0 options --ini ${WORK})
foreach(line
    "CompLimLoa +3\\.0 +3\\.0 +a real number from 1 to 5\n"
    "MaxIter +200 +200 +an integer from 0\n"
    "VarPltMark +Name +Name +None, Number or Name\n"
    "XOpt1 +0 +0 +no value\n"
    "ReconstructWavelets +On +On +Off or On\n$")
  expect("${out}" "${line}")
endforeach()

run(0 options set NCV 5 --ini ${WORK})
run(0 options --ini ${WORK})
expect("${out}" "NCV +5 +7 +an integer from 0\n")
run(1 options set VarPltMarkLen 26 --ini ${WORK})
expect("${err}" "VarPltMarkLen: '26' is not legal: an integer from 1 to 25")
run(1 options set NumberFormat 3 --ini ${WORK})
expect("${err}" "NumberFormat: no such option")
run(0 options set ResidType Scaled --ini ${WORK})
expect("${err}" "goes back to its default")
run(1 options --ini ${WORK}/none)
expect("${err}" "no such directory")
run(2 options set NCV)
run(2 options --ini)
