include(${CMAKE_CURRENT_LIST_DIR}/run_program.cmake)

# grid(NAME): leaves the grid of WORK/NAME.vdo in `out`.
macro(grid name)
  run(0 import ${WORK}/${name}.vdo)
endmacro()

# Every sample's grid becomes a file whose grid is the same.
file(GLOB samples ${SAMPLES}/*.csv)
list(LENGTH samples count)
if(count LESS 5)
  message(SEND_ERROR "only ${count} samples")
endif()
foreach(sample IN LISTS samples)
  get_filename_component(name ${sample} NAME_WE)
  run(0 convert ${sample} ${WORK}/${name}.vdo)
  run(0 import ${WORK}/${name}.vdo -o ${WORK}/${name}.csv)
  expect_same_files(${WORK}/${name}.csv ${sample})
endforeach()

# A canonical table with all that is hard about one: quotes, line breaks, umlauts, the euro, missing
# cells, negative numbers, the smallest and the largest floats.
file(WRITE ${WORK}/hard.csv ",,\"a,b\",\"say \"\"x\"\"\",Größe €,\"two\nlines\"\n"
  "-5,Ä,1,,-0,1e-45\n"
  "32767,\"b,c\",,-3.4028235e+38,1.1754944e-38,-98.99999\n"
  "-32768,,0.1,16777216,1e+10,1e+05\n")
run(0 convert ${WORK}/hard.csv ${WORK}/hard.vdo --name name --title "A title")
run(0 import ${WORK}/hard.vdo -o ${WORK}/hard.out.csv)
expect_same_files(${WORK}/hard.out.csv ${WORK}/hard.csv)
run(0 info ${WORK}/hard.vdo)
expect("${out}" "Title         A title\n")

# What may be written in other ways: separators, line ends, a byte order mark, decimal commas, NA,
# column headings, no columns of numbers or names at all.
string(ASCII 239 187 191 byte_order_mark)
file(WRITE ${WORK}/semicolon.csv "${byte_order_mark}Name;x;y,z\r\nfirst;1,5;NA\r\n\"se;cond\";+2.5; -3e2 \r\n\r\n")
run(0 convert ${WORK}/semicolon.csv ${WORK}/semicolon.vdo)
grid(semicolon)
expect("${out}" "^,,x,\"y,z\"\n1,first,1.5,\n2,se\;cond,2.5,-300\n$")
file(WRITE ${WORK}/tab.csv "No\tx\n7\t0,5\n-2\t1")
run(0 convert ${WORK}/tab.csv ${WORK}/tab.vdo)
grid(tab)
expect("${out}" "^,,x\n7,Obs_7,0.5\n-2,Obs_-2,1\n$")
file(WRITE ${WORK}/plain.csv "x,y\n1,2\n3,4\n")
run(0 convert ${WORK}/plain.csv ${WORK}/plain.vdo)
grid(plain)
expect("${out}" "^,,x,y\n1,Obs_1,1,2\n2,Obs_2,3,4\n$")
file(WRITE ${WORK}/species.csv "species,x\nsetosa,1\n")
run(0 convert ${WORK}/species.csv ${WORK}/species.vdo)
grid(species)
expect("${out}" "^,,x\n1,setosa,1\n$")
file(WRITE ${WORK}/one.csv "x\n1\n\n3\n")
run(0 convert ${WORK}/one.csv ${WORK}/one.vdo)
grid(one)
expect("${out}" "^,,x\n1,Obs_1,1\n2,Obs_2,\n3,Obs_3,3\n$")

# refuse(NAME TEXT PLACE REASON [REPAIR_REASON GRID]): the table is refused with one line, and
# nothing is made; with --repair it is repaired, or refused as well where no grid is given.
function(refuse name text place reason)
  file(WRITE ${WORK}/${name}.csv "${text}")
  run(1 convert ${WORK}/${name}.csv ${WORK}/${name}.vdo)
  expect("${err}" "^zemva: [^\n]*${name}.csv${place}: ${reason}[^\n]*\n$")
  expect("${out}" "^$")
  if(EXISTS ${WORK}/${name}.vdo)
    message(SEND_ERROR "${name}: a refused table left a file")
  endif()
  if(ARGC EQUAL 4)
    run(1 convert ${WORK}/${name}.csv ${WORK}/${name}.vdo --repair)
  else()
    run(0 convert ${WORK}/${name}.csv ${WORK}/${name}.vdo --repair)
    expect("${err}" "${name}.csv${place}: ${reason}")
    grid(${name})
    expect("${out}" "^${ARGV4}$")
  endif()
endfunction()

set(long "abcdefghijklmnopqrstuvwxyz")
refuse(empty "" "" "there is no header row")
refuse(quote ",,x\n1,\"a,1\n" ":2" "a quote is not closed")
refuse(word ",,x\n1,a,1\n2,b,one\n" ":3:3" "'one' is no number" ",,x\n1,a,1\n2,b,\n")
refuse(infinite ",,x\n1,a,inf\n" ":2:3" "'inf' is no number" ",,x\n1,a,\n")
refuse(nan ",,x\n1,a,nan\n" ":2:3" "'nan' is no number" ",,x\n1,a,\n")
refuse(large ",,x\n1,a,1e39\n" ":2:3" "'1e39' is too large a number" ",,x\n1,a,\n")
refuse(marker ",,x\n1,a,-99\n" ":2:3" "'-99' stands for a missing value" ",,x\n1,a,\n")
refuse(comma ",,x\n1,a,\"1,5\"\n" ":2:3" "'1,5' is no number" ",,x\n1,a,\n")
refuse(twice ",,x\n1,a,1\n1,b,2\n2,c,3\n" ":3:1" "observation number 1 stands twice"
  ",,x\n1,a,1\n3,b,2\n2,c,3\n")
refuse(number ",,x\n70000,a,1\n" ":2:1" "'70000' is no observation number" ",,x\n1,a,1\n")
refuse(short ",,x,y\n1,a,1\n" ":2:4" "3 cells in place of 4" ",,x,y\n1,a,1,\n")
refuse(wide ",,x\n1,a,1,2\n" ":2:4" "4 cells in place of 3" ",,x\n1,a,1\n")
refuse(names ",,${long},${long}\n1,${long}1,1,2\n2,${long}2,3,4\n" ":1:3"
  "'${long}' has more than 24 characters"
  ",,abcdefghijklmnopqrstuvwx,abcdefghijklmnopqrstuv~2\n1,abcdefghijklmnopqrstuvwx,1,2\n2,abcdefghijklmnopqrstuv~2,3,4\n")
refuse(letters ",,x\n1,Ω,1\n" ":2:2" "'Ω' has a character" ",,x\n1,\\?,1\n")
string(REPEAT "x," 32768 columns)
refuse(columns "${columns}x\n" ":1" "more than 32767 variables")
string(REPEAT "1\n" 32768 rows)
refuse(rows "x\n${rows}" ":32769" "more than 32767 observations")

run(0 convert ${SAMPLES}/iris.csv ${WORK}/replaced.vdo)

# A project file keeps its data set's place; anything else is not overwritten.
run(0 convert ${WORK}/plain.csv ${WORK}/replaced.vdo --name new)
grid(replaced)
expect("${out}" "^,,x,y\n1,Obs_1,1,2\n")
file(WRITE ${WORK}/letter.vdo "a letter")
run(1 convert ${WORK}/plain.csv ${WORK}/letter.vdo)
expect("${err}" "letter.vdo: DIO: Read error. \\(2005\\)")
run(1 convert ${WORK}/none.csv ${WORK}/none.vdo)
run(1 convert ${WORK}/plain.csv ${WORK}/no/such/folder.vdo)
run(1 convert ${WORK}/plain.csv ${WORK}/named.vdo --name ${long})
run(1 convert ${WORK}/plain.csv ${WORK}/named.vdo --title ${long}${long}${long})
run(2 convert ${WORK}/plain.csv)
