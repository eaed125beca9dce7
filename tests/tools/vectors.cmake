include(${CMAKE_CURRENT_LIST_DIR}/run_program.cmake)

# What there is: of data alone, of a model, and of its predictions.
run(0 vectors ${SAMPLES}/iris.vdo --list)
expect("${out}" "^Vector,Elements,Index,Components,Units\nNum,observations,,,\nTime,observations,,,\nVarDS,observations,1\\.\\.4,,\nObsDS,variables,1\\.\\.150,,\n$")
run(0 vectors ${SAMPLES}/iris.vdo pc --components 2 --list)
expect("${out}" "\nSSX,components,,-1\\.\\.2,\n.*\nt,observations,,1\\.\\.2,\n.*\nXRes,observations,1\\.\\.4,0\\.\\.2,Tr Sc St\nAvgX,variables,,-1\\.\\.0,\n")
if(out MATCHES "\n(u|tPS|VIP),")
  message(SEND_ERROR "${CMAKE_MATCH_1} in ${out}")
endif()
run(0 vectors ${SAMPLES}/mtcars.vdo pls --y mpg --components 1 --test ${SAMPLES}/mtcars.vdo --list)
expect("${out}" "\ntPS,predictions,,1,\n.*\nVIP,variables,,1,\n")

# Vectors of different elements are tables of their own; what is left open is the last component.
run(0 vectors ${SAMPLES}/iris.vdo pc --components 2
  --get t[2] --get p[1] --get MPowX --get XRes1[0] --get R2X --get t1:2[150] --get VarDS1)
expect("${out}" "^ONum,ONam,t\\[2\\],XRes1\\[0\\],VarDS1\n1,setosa_1,[-0-9.]+,-0\\.7433[0-9]*,5\\.1\n")
expect("${out}" "\n\nVNum,VNam,p\\[1\\],MPowX\\[2\\]\n1,Sepal\\.Length,-0\\.521[0-9]*,[0-9.]+\n.*\n4,[^\n]*\n\n")
expect("${out}" "\n\nComp,R2X,t1:2\\[150\\]\nComp\\[1\\],0\\.7296[0-9]*,[-0-9.]+\nComp\\[2\\],0\\.2285[0-9]*,[-0-9.]+\n$")
run(0 vectors ${SAMPLES}/mtcars.vdo pls --y mpg --components 2 --get Coeff1)
expect("${out}" "^VNum,VNam,Coeff1\\[2\\]\n0,Const,24\\.75[0-9]*\n2,cyl,-0\\.3806[0-9]*\n")
run(0 vectors ${SAMPLES}/airquality.vdo --get all --by observations)
expect("${out}" "^ONum,ONam,Num,Time,VarDS1,VarDS2[^\n]*\n1,[^\n]*\n.*\n5,[^,]*,5,5,,,14\\.3,")

# Of components together, by the elements of the type; of all, those that there are.
run(0 vectors ${SAMPLES}/iris.vdo pc --components 2 --get Tsquare1:2[0])
expect("${out}" "^ONum,ONam,Tsquare1:2\\[0\\]\n1,setosa_1,")
# All that a model has, by what its elements are: the headings, and the rows of what is not numbered.
file(WRITE ${WORK}/lagged.csv ",,x1,x2,x3,y1,y2\n1,a,1,2,3,1.5,2\n2,b,4,,1,2,1\n3,c,2,6,5,7,4\n5,d,7,1,4,3,2\n8,e,3,3,9,8,3\n9,f,6,5,2,4,6\n")
set(tables "")
foreach(elements observations predictions variables components lags)
  run(0 vectors ${WORK}/lagged.csv pls --y y1,y2 --lag x1=1 --components 2 --test ${WORK}/lagged.csv --get all --by ${elements})
  string(REGEX REPLACE "\n[1-9][^\n]*" "" out "${out}")
  string(APPEND tables "${out}\n")
endforeach()
expect_golden(vectors.txt "${tables}")
run(0 pls ${SAMPLES}/mtcars.vdo --y mpg --components 1 --save ${WORK}/model.mdl)
run(0 vectors ${WORK}/model.mdl --get all --by observations)
expect("${out}" "^ONum,ONam,Num,[^\n]*,VarRes11\\[0\\],[^\n]*,YRes1\\[1\\]\n1,Mazda RX4,1,")

# What is refused, and how.
foreach(case
    "2 --get VPI|there is no vector 'VPI'" "2 --get t[2|there is no vector 't\\[2'"
    "2 |takes --list, or --get" "2 --list --get t|takes --list, or --get" "2 --get all|--get all takes --by"
    "2 --get t --by lags|--get all takes --by" "2 --get all --by rows|--by takes observations"
    "2 --list --out x|unknown option .--out." "1 --get t[3]|t\\[3\\]: .*8003" "1 --get tPS|tPS: .*8036"
    "1 --get XRes5[1]|XRes5\\[1\\]: .*8021" "1 --get u|u: .*8016")
  string(REGEX MATCH "^([12]) ([^|]*)\\|(.*)$" matched "${case}")
  set(status ${CMAKE_MATCH_1})
  set(message "${CMAKE_MATCH_3}")
  separate_arguments(arguments UNIX_COMMAND "${CMAKE_MATCH_2}")
  run(${status} vectors ${SAMPLES}/iris.vdo pc --components 2 ${arguments})
  expect("${err}" "${message}")
  expect("${out}" "^$")
endforeach()
run(2 vectors ${SAMPLES}/iris.vdo pca --list)
expect("${err}" "takes pc or pls behind the file, not 'pca'")
