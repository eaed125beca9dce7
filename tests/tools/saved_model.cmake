include(${CMAKE_CURRENT_LIST_DIR}/run_program.cmake)

# Whether a saved model predicts what it did when it was fitted, to the bit.
function(expect_same_predictions test)
  run(0 ${ARGN} --save ${WORK}/model.mdl --test ${test} --out ${WORK}/fitted)
  says("Executing PS: Model M1" predict ${WORK}/model.mdl ${test} --out ${WORK}/saved)
  expect_same_files(${WORK}/fitted/predictions.csv ${WORK}/saved/predictions.csv)
endfunction()

file(WRITE ${WORK}/test.csv ",,Petal.Width,new,Petal.Length,Sepal.Width,Sepal.Length
5,\"an \"\"average\"\"\\\tone\",1.1993333,1,3.758,3.0573333,5.8433332\n6,step,0.7687784,1,2.7333978,,5.4118563\n")
expect_same_predictions(${WORK}/test.csv pc ${SAMPLES}/iris.vdo)
expect_same_predictions(${SAMPLES}/airquality.csv pc ${SAMPLES}/airquality.vdo --components 3)
file(COPY_FILE ${SAMPLES}/mtcars.csv ${WORK}/cars.csv)
expect_same_predictions(${WORK}/cars.csv pls ${SAMPLES}/mtcars.vdo --y mpg,hp --transform hp=log
  --lag wt=1,2 --expand "wt*qsec" --components 2)
expect_same_predictions(${WORK}/test.csv pls ${SAMPLES}/iris.csv --class 1=1-50 --class 2=51-150)

# The listings, the summary, and a model over itself.
run(0 pc ${SAMPLES}/iris.vdo --save ${WORK}/model.mdl)
string(REGEX REPLACE "Largest .*" "" fitted "${out}")
run(0 show ${WORK}/model.mdl)
string(FIND "${out}" "${fitted}" at)
expect("${at}" "^0$")
expect("${out}" "Data for centering.*Component\\[2\\].*Executing WS: Model M1")
says("\n  SignRule2 +i2 +33\n.*\nModel\nType +PC-1\nName +M1\n.*\nData set +iris\n.*\nComponents +2\n$" info ${WORK}/model.mdl)
run(0 info ${WORK}/model.mdl --json)
expect_json(150 Model Observations)
run(0 predict ${WORK}/model.mdl ${WORK}/test.csv --json)
expect_json("an \"average\"\\\tone" 0 ONam)

run(0 vectors ${WORK}/model.mdl --get p[2] --get R2VX[1])
set(saved "${out}")
run(0 vectors ${SAMPLES}/iris.vdo pc --get p[2] --get R2VX[1])
string(COMPARE EQUAL "${out}" "${saved}" is_same)
expect(${is_same} 1)
fails(1 "\\(8009\\)\r?\n$" vectors ${WORK}/model.mdl --get XRes1[1])

# What is none stays, and is none.
foreach(arguments "show;${SAMPLES}/iris.vdo" "predict;${SAMPLES}/iris.vdo;${WORK}/test.csv")
  fails(1 "iris.vdo: is no saved model \\(2000\\); pc and pls write one with --save\r?\n$" ${arguments})
endforeach()
foreach(arguments "pc;${WORK}/model.mdl" "stats;${WORK}/model.mdl"
    "convert;${WORK}/model.mdl;${WORK}/a.vdo" "predict;${WORK}/model.mdl;${WORK}/model.mdl")
  fails(1 "model.mdl: is a saved model: info, show, predict, plot and vectors take it\r?\n$" ${arguments})
endforeach()
fails(1 "test.csv: .*\\(2017\\)\r?\n$" pc ${SAMPLES}/iris.vdo --save ${WORK}/test.csv)
fails(1 "none.mdl: .*\\(2004\\)\r?\n$" show ${WORK}/none.mdl)
fails(1 "mtcars.vdo: .*\\(8033\\)\r?\n$" predict ${WORK}/model.mdl ${SAMPLES}/mtcars.vdo)
