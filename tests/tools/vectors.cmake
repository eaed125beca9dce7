include(${CMAKE_CURRENT_LIST_DIR}/run_program.cmake)

# What there is: of data alone, of a model, and of its predictions. Then vectors by name, of which those of different
# elements are tables of their own, and what is left open is the last component. At last all that a model has, by what
# its elements are: the headings, and the rows of what is not numbered.
file(WRITE ${WORK}/t.csv ",,x1,x2,x3,y1,y2\n1,a,1,2,3,1.5,2\n2,b,4,,1,2,1\n3,c,2,6,5,7,4\n5,d,7,1,4,3,2\n8,e,3,3,9,8,3\n9,f,6,5,2,4,6\n")
set(pls pls --y y1,y2 --lag x1=1 --components 2 --test ${WORK}/t.csv)
set(tables "")
foreach(arguments "--list" "pc;--components;2;--list" "${pls};--list" "--get;all;--by;observations"
    "pc;--components;2;--get;t[2];--get;p[1];--get;MPowX;--get;XRes1[0];--get;R2X;--get;t1:2[6];--get;VarDS1;--get;Tsquare1:2[0]"
    "${pls};--get;Coeff2")
  run(0 vectors ${WORK}/t.csv ${arguments})
  string(APPEND tables "${out}\n")
endforeach()
foreach(elements observations predictions variables components lags)
  run(0 vectors ${WORK}/t.csv ${pls} --get all --by ${elements})
  string(REGEX REPLACE "\n[1-9][^\n]*" "" out "${out}")
  string(APPEND tables "${out}\n")
endforeach()
expect_golden(vectors.txt "${tables}")
run(0 pls ${SAMPLES}/mtcars.vdo --y mpg --components 1 --save ${WORK}/model.mdl)
says("^ONum,ONam,Num,[^\n]*,VarRes11\\[0\\],[^\n]*,YRes1\\[1\\]\n1,Mazda RX4,1," vectors ${WORK}/model.mdl --get all --by observations)

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
  fails(${status} "${message}" vectors ${SAMPLES}/iris.vdo pc --components 2 ${arguments})
endforeach()
fails(2 "takes pc or pls behind the file, not 'pca'" vectors ${SAMPLES}/iris.vdo pca --list)
