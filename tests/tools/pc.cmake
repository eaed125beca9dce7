set(MODEL pc)
include(${CMAKE_CURRENT_LIST_DIR}/run_model.cmake)

# The numbers are those of a singular value decomposition in double precision. Two components of
# the irises are significant, which leaves the third to be refused.
fit(${SAMPLES}/iris.vdo)
expect("${out}" "^PC-1 .* From data set: iris\n.* NObs = 150, NVarX= 4\n.*\nComp\\[2\\] +0\\.229 +0\\.958 ")
expect("${out}" "\nTitle: .* R1\nLargest p\\[1\\]: Petal.Length -0.58, .*\nLargest p\\[2\\]: Sepal.Width 0.923, ")
expect("${out}" "\nDModX beyond 1.755 .95 %.: 11 of 150: virginica_115 2.54, .* and 3 more\n")
expect("${out}" "\nTsquare beyond 9.567 .99 %.: 1 of 150: setosa_16 9.65\n$")
expect("${err}" "^Q2\\[1\\]= .*Not significant component acc\\. to rule 3\\.\r?\nExecuting WS: Model M1\r?\n")
expect_in(components "^Comp,R2X,R2X\\(cum\\),Eig,Q2,Q2lim,Q2\\(cum\\),Iter,Status\n1,0\\.72962[0-9]*,0\\.72962[0-9]*,2\\.9184")
expect_in(components "\n2,0\\.22850[0-9]*,0\\.95813[0-9]*,0\\.91403[0-9]*,0\\.[0-9]+,0\\.[0-9]+,0\\.[0-9]+,[0-9]+,1\n$")
expect_in(observations "\n16,[^\n]*,9\\.648[0-9]*,0,1,1\n")
expect_in(limits "^Limit,Of,Level,Value\nDCritWS,DModX,0\\.95,1\\.7547[0-9]*\nDCritTS,DModXPS,0\\.95,1\\.7486[0-9]*\nT2Crit,Tsquare,0\\.95,6\\.1557[0-9]*\nT2Crit,Tsquare,0\\.99,9\\.567[0-9]*\nHalfAxis,t\\[1\\],0\\.95,4\\.2244")

# As many as are asked for, and no more than there can be; nothing is left of the last residuals.
fit(${SAMPLES}/USArrests.vdo --components 127)
expect("${err}" "USArrests.vdo: there can be no more than 4 components\r?\n$")
expect_in(observations "\n1,Alabama(,-?[0-9.]+)(,-?[0-9.]+)(,-?[0-9.]+)(,-?[0-9.]+),,,2\\.38[0-9]*,,0,0\n")
# Four observations leave three components when centred.
file(WRITE ${WORK}/wide.csv ",,a,b,c,d,e\n1,,5,1,2,8,1\n2,,3,2,2,1,0\n3,,2,5,5,4,1\n4,,9,2,0,6,3\n")
fit(${WORK}/wide.csv --components 5)
expect("${err}" "wide.csv: there can be no more than 3 components\r?\n$")
# A table of rank two.
file(WRITE ${WORK}/plane.csv ",,a,b,c,d\n1,,1,2,3,8\n2,,2,1,3,1\n3,,0,5,5,4\n4,,7,2,9,6\n5,,4,4,8,0\n6,,3,0,3,3\n")
fit(${WORK}/plane.csv --components 4 --exclude d)
expect("${err}" "plane.csv: there can be no more than 2 components\r?\n$")
expect_in(components "\n2,[^\n]*\n$")
# All that is said and written of a model with missing values, by a separate program in double precision.
fit(${SAMPLES}/airquality.vdo --exclude-obs 21-153 --exclude Month --components 2)
expect_all(pc.txt)

fit(${SAMPLES}/iris.vdo --components 1 --exclude Sepal.Width)
expect_in(components "\n1,0\\.92324")
fit(${SAMPLES}/iris.vdo --components 1 --class 7=1-49,50 --class 2=51,60-70 --only-class 7)
expect("${out}" "^PC-1Cl.* NObs = 50,")
expect_in(components "\n1,0\\.5146")
fit(${SAMPLES}/iris.vdo --components 1)
file(RENAME ${WORK}/out/components.csv ${WORK}/default.csv)
fit(${SAMPLES}/iris.vdo --components 1 --ncv 7 --max-iter 200)
expect_same_files(${WORK}/default.csv ${WORK}/out/components.csv)
fit(${SAMPLES}/iris.vdo --components 1 --ncv 3 --max-iter 2)
expect_in(components ",3,[0-9]\n$")
fit(${SAMPLES}/iris.vdo --components 1 --scale None)
expect_in(components "\n1,0\\.9653")

# The observations of the model are predicted as they were fitted.
fit(${SAMPLES}/iris.vdo --test ${SAMPLES}/iris.vdo)
expect_in(predictions "^ONum,ONam,tPS\\[1\\],tPS\\[2\\],DModXPS,PModXPS\n1,setosa_1,2\\.2571[0-9]*,0\\.4784[0-9]*,0\\.3176")
# Others, by the names of their variables: the first is an average one, the second one step along
# the first component away from it, the third has too little for a prediction.
file(WRITE ${WORK}/test.csv ",,Petal.Width,new,Petal.Length,Sepal.Width,Sepal.Length
5,average,1.1993333,1,3.758,3.0573333,5.8433332
6,step,0.7687784,1,2.7333978,3.1747328,5.4118563
7,empty,,1,,,5
")
run(0 convert ${WORK}/test.csv ${WORK}/test.vdo)
fit(${SAMPLES}/iris.vdo --test ${WORK}/test.vdo)
file(COPY ${WORK}/out/predictions.csv DESTINATION ${WORK}/of_project)
fit(${SAMPLES}/iris.csv --test ${WORK}/test.csv)
expect_same_files(${WORK}/of_project/predictions.csv ${WORK}/out/predictions.csv)
expect("${err}" "Observation excluded")
expect_in(predictions "\n5,average,0,0,0,1\n6,step,(1|0\\.9999|1\\.0000)[0-9]*,-?[0-9.]+e-0[5-9],[^\n]*\n7,empty,,,,\n$")

# Tables of an earlier model do not stay beside those of this one.
run(0 pc ${SAMPLES}/iris.csv --out ${WORK}/out)
expect("${err}" "/out/predictions.csv: of an earlier model, is removed\r?\n$")
expect_none(${WORK}/out/predictions.csv)

# Classes from a column of texts.
file(WRITE ${WORK}/kinds.csv
  "id,kind,x,y\n1,b,1,2\n2,a,3,5\n3,b,4,4\n4,b,2,7\n5,a,9,9\n6,b,5,3\n7,b,0,1\n")
fails(1 "kinds.csv: line 1, column 2: 'kind' holds texts: --class-by " pc ${WORK}/kinds.csv)
fit(${WORK}/kinds.csv --numbers id --class-by kind --only-class 1 --components 1)
expect("${err}" "kinds.csv: 7 observations .numbers from 'id', no names., 2 variables, 2 classes from 'kind': 1 b .5., 2 a .2.\r?\n")
expect("${out}" "NObs = 5,")
fails(2 "^zemva: --class-by and --class " pc ${WORK}/kinds.csv --class-by kind --class 1=1-3)

# The settings file is where models start; the command line goes before it.
run(0 options set MaxIter 2 --ini ${WORK})
fit(${SAMPLES}/iris.csv --ini ${WORK} --components 1)
expect("${err}" "iris.csv: component 1 has not converged in 2 iterations; --max-iter allows more\r?\n$")
fit(${SAMPLES}/iris.csv --ini ${WORK} --components 1 --max-iter 200)
expect_same_files(${WORK}/default.csv ${WORK}/out/components.csv)
file(REMOVE ${WORK}/zemva.ini)

# Rule 2 keeps a component for the sake of a few variables.
file(WRITE ${WORK}/noise.csv "a,b,c,d,e,f\n-0.1,-1.0,-0.7,0.1,0.8,-1.4\n0.6,0.5,0.6,-0.5,-0.3,-0.9\n0.3,-0.5,0.8,-0.4,-0.7,0.3\n-0.4,-0.7,-0.4,-1.5,1.4,-1.3\n-0.6,-0.5,-0.7,0.5,-3.6,-0.2\n-3.7,-3.1,-3.9,-0.2,-2.2,0.1\n-2.9,-1.7,-2.2,-0.1,0.0,-1.6\n3.4,2.6,3.3,-1.9,-0.0,-1.3\n")
fit(${WORK}/noise.csv)
expect("${err}" "noise.csv: component 2 predicts less than none .Q2 below 0.; --components 1 keeps 1 component with a Q2.cum. of 0.[0-9]+\r?\n$")

# Names in the code page, and in need of quotes.
file(WRITE ${WORK}/names.csv
  ",,Größe,b,c\n-2,\"x, y\",5,1,2\n1,é,2,3,7\n2,,0,4,1\n30,v,1,,9\n31,w,7,2,3\n")
fit(${WORK}/names.csv --components 1)
expect_in(variables "\n1,Größe,3,")
expect_in(observations "\n-2,\"x, y\",.*\n1,é,.*\n2,,")
fit(${WORK}/names.csv --components 1 --exclude b,Größe --class 1=-2--2,1-2,30,31 --only-class 1)

# A component that cannot be fitted ends the search; the ones before it stand.
file(WRITE ${WORK}/sparse.csv
  ",,a,b\n1,,5,\n2,,2,1\n3,,0,\n4,,,0\n5,,,\n6,,-0.3,\n7,,2,\n8,,,4\n9,,,0\n10,,,\n")
fit(${WORK}/sparse.csv --components 2 --ncv 2)
expect("${err}" "sparse.csv: stopped after 1 component: MVA: Only missing [^\n]* \\(8043\\)")

# What stands against a model: the file, its data, the significance of the first component.
file(WRITE ${WORK}/text.vdo "no project file")
fails(1 "^zemva: [^\n]*none.vdo: DIO: File open error. \\(2004\\)\r?\n$" pc ${WORK}/none.vdo)
fails(1 "^zemva: [^\n]*text.vdo: line 1, column 1: there is no row below the header row\r?\n$" pc ${WORK}/text.vdo)
file(WRITE ${WORK}/constant.csv ",,a,b,c\n1,,1,2,7\n2,,3,2,1\n3,,2,2,5\n4,,9,2,0\n5,,4,2,2\n")
fails(1 "X-variable 2 b\r?\n[^\n]*constant.csv: [^\n]* \\(8038\\)\r?\n$" pc ${WORK}/constant.csv)
fails(1 "constant.csv: [^\n]* \\(8017\\)\r?\n$" pc ${WORK}/constant.csv --exclude a,b,c)
fails(1 "iris.vdo: [^\n]* \\(8020\\)\r?\n$" pc ${SAMPLES}/iris.vdo --class 1=1-3 --only-class 1)
fails(1 "acc\\. to current rules\\.\r?\n[^\n]*iris.vdo: no component is significant; --components [^\n]*\n$" pc ${SAMPLES}/iris.vdo --class 1=1-50 --only-class 1 --out ${WORK}/refused/deep)
fails(1 "sparse.csv: [^\n]* \\(8043\\)\r?\n$" pc ${WORK}/sparse.csv --components 2 --ncv 2 --scale None)
fails(1 "text.vdo: line 1, [^\n]*\r?\n$" pc ${SAMPLES}/iris.vdo --test ${WORK}/text.vdo)
fails(1 "none.vdo: [^\n]* \\(2004\\)\r?\n$" pc ${SAMPLES}/iris.vdo --test ${WORK}/none.vdo)
fails(1 "mtcars.vdo: [^\n]* \\(8033\\)\r?\n$" pc ${SAMPLES}/iris.vdo --test ${SAMPLES}/mtcars.vdo)

# Files that cannot be written.
fails(1 "^zemva: [^\n]*/out: cannot be created\r?\n$" pc ${WORK}/none.vdo --out ${WORK}/text.vdo/out)
file(MAKE_DIRECTORY ${WORK}/blocked/observations.csv)
fails(1 "^zemva: [^\n]*/observations.csv: cannot be written\r?\n$" pc ${WORK}/none.vdo --out ${WORK}/blocked)
expect_none(${WORK}/refused)

fails(2 "^zemva: --only-class: '100' is not [^\n]*\r?\nusage: " pc ${SAMPLES}/iris.vdo --only-class 100)
fails(2 "^zemva: --only-class: --class does not say what is in it\r?\n" pc ${SAMPLES}/iris.vdo --class 1=1-9 --only-class 2)
