include(${CMAKE_CURRENT_LIST_DIR}/run_program.cmake)

run(0 info ${SAMPLES}/airquality.vdo)
foreach(line
    "Version       2\n"
    "Size          5781\n"
    "Project       Project\n"
    "Time          2001-01-01 12:00:00\n"
    "Super items   1\n"
    "\nairquality              data                        5671\n"
    "\n  Dataset               mxf4   153 x 6              3718\n"
    "\n  NVar                  i2                            33\n"
    "Observations  153\n"
    "Variables     6\n"
    "Missing       44 \\(4.79 %\\)\n")
  expect("${out}" "${line}")
endforeach()

run(0 info ${SAMPLES}/airquality.vdo --json)
expect_json(5781 Size)
expect_json(airquality "Super items" 0 Item)
expect_json(6 "Super items" 0 Items 7 Dims 1)
expect_json(44 "Data set" Missing)

run(0 info ${SAMPLES}/iris.wks)
expect("${out}" "\nWork set\nName +Three kinds\nData set +iris\nObservations +148\nOf data set +150\nClasses +3
X variables +4\nY variables +1\nExcluded +1\nLagged +1\nTerms +1\nTransformed +1\n$")
run(0 info ${SAMPLES}/iris.wks --json)
expect_json(148 "Work set" Observations)
run(0 info ${SAMPLES}/iris.pre)
expect("${out}" "\nPrediction set\nName +Every tenth\nObservations +15\nOf data set +150\n$")

file(WRITE ${WORK}/text.vdo "no project file")
run(1 info ${WORK}/text.vdo)
expect("${err}" "text.vdo: is a text, no project file; convert, stats, .* vectors take tables\r?\n$")
expect("${out}" "^$")
run(1 info ${WORK}/none.vdo)
expect("${err}" "none.vdo: DIO: File open error. \\(2004\\)")
run(2 info)
