set(MODEL pls)
include(${CMAKE_CURRENT_LIST_DIR}/run_model.cmake)

# All that is said and written of a model and of predictions: of an observation as it was fitted, of one that
# misses values, and of one that misses all. The numbers are those of a separate program in double precision.
file(WRITE ${WORK}/test.csv ",,hp,mpg,wt,cyl,drat,qsec,vs,am,gear,carb,disp,new
4,as fitted,110,21,2.62,6,3.9,16.46,0,1,4,4,160,0\n2,partly,,20,2.875,6,,17.02,0,1,4,4,160,0\n9,,,,,,,,,,,,,0\n")
fit(${SAMPLES}/mtcars.csv --y mpg,hp --components 2 --test ${WORK}/test.csv)
expect_all(pls.txt)

# Several responses, one that misses values, and classes; the rules alone decide once.
fit(${SAMPLES}/spectra.csv --y y1,y2 --components 3)
expect_in(components "\n3,0\\.2581[^\n]*,0\\.01476[0-9]*,0\\.9697[0-9]*\n$")
expect_in(responses "\n[0-9]+,y1,[^\n]*,10\\.78[0-9]*,0\\.348[0-9]*\n[0-9]+,y2,[^\n]*,37\\.8[0-9]*,0\\.649[0-9]*\n$")
expect_in(variables "\n1,nm1100,[^\n]*,0\\.4588[0-9]*,0\\.00098[0-9]*,0\\.0837[0-9]*,-0\\.0032[0-9]*,-0\\.3699?[0-9]*\n")
fit(${SAMPLES}/iris.csv --class 1=1-50 --class 2=51-100 --class 3=101-150 --components 2)
expect("${out}" "^PLS-1DA ")
expect_in(components "\n2,0\\.22789[^\n]*,0\\.08612[0-9]*,0\\.5572[0-9]*\n$")
expect_in(responses "\n1,Class1,[^\n]*,0\\.3914[0-9]*,0\\.1558[0-9]*\n2,Class2,[^\n]*\n3,Class3,[^\n]*\n$")
expect_in(observations ",YPred\\(Class1\\),YPred\\(Class2\\),YPred\\(Class3\\),DModX[^\n]*\n1,setosa_1,[^\n]*,0\\.9576[0-9]*,0\\.1110[0-9]*,-0\\.0687[0-9]*,[01],[01],[01]\n")
file(COPY ${WORK}/out/responses.csv DESTINATION ${WORK}/by_number)

# The same classes from a column of texts.
file(READ ${SAMPLES}/iris.csv table)
string(REGEX REPLACE "(\n[0-9]+),([a-z]+)(_[0-9]+)" "\\1,\\2\\3,\\2" table "${table}")
string(REPLACE ",,S" ",,Species,S" table "${table}")
file(WRITE ${WORK}/species.csv "${table}")
fit(${WORK}/species.csv --class-by Species --components 2)
expect("${err}" "3 classes from 'Species': 1 setosa .50., 2 versicolor .50., 3 virginica .50.\r?\n")
expect_same_files(${WORK}/by_number/responses.csv ${WORK}/out/responses.csv)

# A response by its own scaling, and with a name that is to be quoted.
file(WRITE ${WORK}/quoted.csv
  ",,\"y, 1\",a,b\n1,,5,1,2\n2,,3,2,2\n3,,2,5,5\n4,,9,2,0\n5,,1,4,4\n6,,7,1,3\n")
fit(${WORK}/quoted.csv --y "\"y, 1\"" --y-scale Ctr --components 1)
expect_in(observations ",\"YPred\\(y, 1\\)\",DModX")
expect_in(responses "\n1,\"y, 1\",4\\.5,1,")

# For other programs, and for spreadsheets where the decimal mark is a comma.
run(0 pls ${SAMPLES}/mtcars.csv --y mpg --components 2 --json)
expect_json(PLS-12 type)
expect_json(10 variables)
expect_json(2 components 1 Comp)
run(0 pls ${SAMPLES}/mtcars.vdo --y mpg --components 1 --out ${WORK}/comma --decimal comma)
file(READ ${WORK}/comma/observations.csv text)
expect("${text}" "^ONum;ONam;[^\n]*\n1;Mazda RX4;0,693[0-9]*;")
run(0 import ${SAMPLES}/iris.vdo --decimal comma -o ${WORK}/comma.csv)
run(0 convert ${WORK}/comma.csv ${WORK}/comma.vdo)
run(0 import ${WORK}/comma.vdo -o ${WORK}/point.csv)
expect_same_files(${WORK}/point.csv ${SAMPLES}/iris.csv)

fails(2 "^zemva: pls takes responses, --y, or classes, --class or --class-by\r?\n" pls ${SAMPLES}/iris.csv)
fails(2 "^zemva: --y-scale takes --y: " pls ${SAMPLES}/iris.csv --class 1=1-50 --class 2=51-150 --y-scale Ctr)
file(WRITE ${WORK}/constant.csv ",,y,a,b\n1,,1,2,7\n2,,1,2,1\n3,,1,2,5\n4,,1,1,0\n5,,1,2,2\n")
fails(1 "constant.csv: [^\n]* .80(28|38).\r?\n$" pls ${WORK}/constant.csv --y y)
