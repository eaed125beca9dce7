include(${CMAKE_CURRENT_LIST_DIR}/run_program.cmake)

# Without gnuplot a line says so, before a model is fitted.
set(path "$ENV{PATH}")
find_program(xmllint xmllint)
if(NOT PROGRAM MATCHES "wine")
  set(ENV{PATH} ${WORK})
endif()
foreach(arguments "plot;${SAMPLES}/iris.vdo;scores;-o;${WORK}/a.svg"
    "pc;${SAMPLES}/iris.vdo;--plots;${WORK}/none")
  fails(1 "^zemva: gnuplot: is not installed; it draws the figures\r?\n$" ${arguments})
endforeach()
expect_none(${WORK}/none)
set(ENV{PATH} "${path}")

# What is wrong is said first of all.
foreach(expected
    "2;plot none.csv;^zemva: plot takes a kind of figure: overview, scores, "
    "2;plot none.csv scors -o a.svg;^zemva: there is no figure 'scors': did you mean 'scores'."
    "2;plot none.csv scores;^zemva: plot takes -o, or --script"
    "2;plot none.csv scores -o a.gif;^zemva: -o: 'a.gif' ends in none of .svg, .png, .pdf"
    "2;plot none.csv vip -o a.svg;^zemva: this figure takes responses, --y, or classes, "
    "2;plot none.csv scores -o a.svg --axes 1,0;^zemva: --axes: "
    "2;plot none.csv scores -o a.svg --axes 128;^zemva: --axes: '128' is not a whole number from 1 to 127"
    "2;plot none.csv scores -o a.svg --axes 1,2,3;^zemva: --axes: '1,2,3' is not A,B"
    "2;plot none.csv scores -o a.svg --model lda;^zemva: --model: 'lda' is none of pc, pls")
  list(POP_FRONT expected status line regex)
  separate_arguments(words UNIX_COMMAND "${line}")
  run(${status} ${words})
  expect("${err}" "${regex}")
endforeach()

# Every kind of figure of a table whose texts mean something elsewhere: in the script they mean nothing.
# The numbers are those of a separate program in double precision.
file(WRITE ${WORK}/evil.csv "ONum,ONam,kind,\"it's `touch made`\",\"b% \\\",\"c \"\"q\"\" <x>&\",twenty-three characters,y,\"y, 2\"
1,\"a' 'b','\"\"\",\"x'`touch made`
set output 'made'\",1,2,3,0.5,3.1,10\n2,\"\\n\\x27 $(touch made) \\\",y,3,4,1,-1.5,5.9,12
3,</title><script>a(),z,5,1,2,2.5,7.2,\n4,é ü,z,2,2,7,0,1.4,11\n5,EOD,,2,9,7,4,3.3,35\n6,,z,1,3,2,-2,2.9,14
7,another of so many chars,y,4,6,,1,8.1,18\n8,eight,y,-2,0,5,-3,-6.5,3\n9,nine,z,7,5,4,2,9.4,20\n")
set(scripts "")
foreach(figure "overview" "scores" "loadings --axes 2,1" "distances" "t2" "vip" "coefficients --response y" "predicted --response '\"y, 2\"'"
    "contributions --obs 4 --axes 2" "scores --components 1 --model pc" "loadings --components 1 --model pc")
  separate_arguments(words UNIX_COMMAND "${figure} --y 'y,\"y, 2\"' --class-by kind")
  if(NOT figure MATCHES "components")
    list(APPEND words --components 2)
  endif()
  run(0 plot ${WORK}/evil.csv ${words} --script -)
  string(APPEND scripts "${out}")
endforeach()
# In a crowd names go where there is room, and those of responses anywhere.
run(0 plot ${SAMPLES}/spectra.csv loadings --y y1,y2 --components 2 --script -)
string(REGEX REPLACE "^.*(\n.names3 )" "\\1" crowd "${out}")
expect_golden(figures.gp "${scripts}${crowd}")
# Of observations with limits those beyond are named.
says("\n.names[0-9]* << EOD\n9\t1.73326\t\"Merc 230\"\nEOD\n" plot ${SAMPLES}/mtcars.csv distances --y mpg,hp --components 2 --script -)
fails(1 "zemva: contributions: the model has no such observation\r?\n$"
  plot ${SAMPLES}/mtcars.csv contributions --components 1 --obs 33 --script -)
# An ellipse may be small.
says("title '95 % .T2.'" plot ${SAMPLES}/spectra.csv scores --exclude y1,y2 --scale Ctr --components 6 --axes 5,6 --script -)
# Names that fit side by side take no room below; of four hundred bars, which are not sorted, few are named.
says("bmargin at screen 0.125\n.*\nset xtics scale 0 .'Sepal.Length' 1, " plot ${SAMPLES}/iris.csv contributions --script -)
run(0 plot ${SAMPLES}/spectra.csv vip --y y1 --components 2 --script -)
expect("${out}" "rotate by 90 right .'nm1100' 1, 'nm1118' 10, [^\n]*'nm1892' 397.\n.* noborder\n.bars1 << EOD\n1\t0\\.[0-9]*\t\"nm1100\"\n2\t")
expect_none(${WORK}/made ${CMAKE_CURRENT_BINARY_DIR}/made)

if(PROGRAM MATCHES "wine")
  return()
endif()
find_program(gnuplot gnuplot)
if(NOT gnuplot)
  message("gnuplot is not installed")
  return()
endif()

# expect_figure(FILE TEXT...): a drawing that is whole, with these texts.
function(expect_figure file)
  file(READ ${file} svg)
  if(xmllint)
    execute_process(COMMAND ${xmllint} --noout ${file} RESULT_VARIABLE fault)
  endif()
  if(fault OR NOT svg MATCHES "^<.xml.*</svg>[\r\n]*$" OR svg MATCHES "onmouse|gnuplot_svg")
    message(SEND_ERROR "${file} is no drawing")
  endif()
  foreach(text IN LISTS ARGN)
    expect("${svg}" "${text}")
  endforeach()
endfunction()

run(0 plot ${WORK}/evil.csv scores --class-by kind --components 2 -o ${WORK}/evil.svg --script ${WORK}/evil.gp)
expect_figure(${WORK}/evil.svg "<title>&lt./title>&lt.script>a..</title>" "<title>é ü</title>"
  "<title>.n.x27 ..touch made. .</title>" "<title>6</title>")
run(0 plot ${WORK}/evil.csv contributions --components 1 --class-by kind --obs 4 -o ${WORK}/evil.svg)
expect_figure(${WORK}/evil.svg ">it's `touch made`<" ">b% .<" ">c \"q\" &lt.x>&amp.<" " of é ü<")
execute_process(COMMAND ${gnuplot} ${WORK}/evil.gp figures.gp WORKING_DIRECTORY ${WORK} RESULT_VARIABLE fault)
if(fault OR EXISTS ${WORK}/made)
  message(SEND_ERROR "the script of a figure does not draw it")
endif()

# Every kind of every sample, with a name for each observation.
function(draw sample command)
  set(folder ${WORK}/${sample}_${command})
  run(0 ${command} ${SAMPLES}/${sample}.vdo ${ARGN} --json --plots ${folder})
  if(err MATCHES "gnuplot|arning")
    message(SEND_ERROR "${err}")
  endif()
  string(JSON count GET "${out}" observations)
  file(GLOB figures ${folder}/*.svg)
  foreach(figure IN LISTS figures)
    expect_figure(${figure})
  endforeach()
  foreach(kind scores distances t2)
    file(READ ${folder}/${kind}.svg svg)
    string(REGEX MATCHALL "<title>" titles "${svg}")
    list(LENGTH titles found)
    if(NOT found EQUAL count)
      message(SEND_ERROR "${folder}/${kind}.svg names ${found} of ${count} observations")
    endif()
  endforeach()
  file(GLOB names RELATIVE ${folder} ${folder}/*)
  set(names "${names}" PARENT_SCOPE)
endfunction()

foreach(sample "USArrests;Murder" "airquality;Temp" "iris;Sepal.Width" "mtcars;mpg,qsec"
    "spectra;y1")
  list(POP_FRONT sample name)
  draw(${name} pc)
  expect("${names}" "^contributions.svg;distances.svg;loadings.svg;overview.svg;scores.svg;t2.svg$")
  draw(${name} pls --y ${sample} --components 2)
  expect("${names}" "coefficients.*;loadings.svg;.*;predicted.*;vip.svg$")
endforeach()
expect_figure(${WORK}/mtcars_pls/scores.svg "t.1., 60 %" "95 % .T2." "Ford Pantera L")
expect_figure(${WORK}/mtcars_pls/loadings.svg "w.c.2., 24 %" "<title>qsec</title>")
expect_figure(${WORK}/mtcars_pls/predicted-2.svg "qsec: RMSEE = 0.9" ">1:1<")

# Figures of an earlier model do not stay, but what else is there does; a saved model has those that need no data.
foreach(other predicted-x predicted- scores-2)
  file(TOUCH ${WORK}/mtcars_pls/${other}.svg)
endforeach()
run(0 pls ${SAMPLES}/mtcars.vdo --y mpg --components 1 --plots ${WORK}/mtcars_pls
  --save ${WORK}/cars.mdl)
expect("${err}" "predicted-2.svg: of an earlier model, is removed\r?\n")
file(GLOB left RELATIVE ${WORK}/mtcars_pls ${WORK}/mtcars_pls/*-*.svg)
expect("${left}" "^predicted-.svg;predicted-x.svg;scores-2.svg$")
expect_figure(${WORK}/mtcars_pls/scores.svg "t.1., 58 %" ">observation<")
says("mpg: RMSEE = 2.5" plot ${WORK}/cars.mdl predicted -o -)
fails(1 "^zemva: contributions: a saved model has not the data " plot ${WORK}/cars.mdl contributions -o -)
fails(1 "^zemva: scores: there is no component 2\r?\n$" plot ${WORK}/cars.mdl scores --axes 1,2 -o -)
fails(2 "^zemva: --response: there is no response 'mgp': did you mean 'mpg'." plot ${WORK}/cars.mdl predicted --response mgp -o -)
foreach(format png pdf)
  run(0 plot ${SAMPLES}/iris.csv scores --components 2 -o ${WORK}/iris.${format})
endforeach()
