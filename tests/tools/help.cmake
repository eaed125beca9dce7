include(${CMAKE_CURRENT_LIST_DIR}/run_program.cmake)

# What is asked for goes to standard output, what is wrong to standard error with the word.
foreach(expected
    "0;--version;^zemva [0-9]+.[0-9]+.[0-9]+\r?\n$"
    "0;--help;^usage: zemva COMMAND .options.\n.*\n  import  .*\n  pc  .*\nexample: zemva pc "
    "0;help;^usage: zemva COMMAND .options.\n"
    "0;help pc;^usage: zemva pc FILE .options.\n.*\n  --ncv G  .*.7.\n.*\nexample: zemva pc "
    "0;pc --help;^usage: zemva pc FILE .options.\n"
    "0;options set -h;^usage: zemva options set KEY .VALUE. .options.\n"
    "2;help pcc;^zemva: unknown command 'pcc': did you mean 'pc'.\n"
    "2;impotr x;^zemva: unknown command 'impotr': did you mean 'import'.\n"
    "2;stats --al x;^zemva: unknown option '--al': did you mean '--all'.\nusage: zemva stats FILE .options.\n'zemva help stats' says more\n$"
    "2;options ste NCV 5;^zemva: unknown command 'ste': did you mean 'set'.\n"
    "1;info -- --none;^zemva: --none: DIO: File open error. .2004.\n$")
  list(POP_FRONT expected status line regex)
  separate_arguments(words UNIX_COMMAND "${line}")
  run(${status} ${words})
  string(REPLACE "\r\n" "\n" said "${out}${err}")
  expect("${said}" "${regex}")
endforeach()
