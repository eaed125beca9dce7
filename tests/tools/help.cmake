include(${CMAKE_CURRENT_LIST_DIR}/run_program.cmake)

# What is asked for goes to standard output, what is wrong to standard error with the word.
foreach(expected
    "0;--version;^zemva [0-9]+.[0-9]+.[0-9]+\r?\n$"
    "0;--help;^usage: zemva COMMAND .options.\n.*\n  import  .*\n  pc  .*\nexample: zemva pc "
    "0;pc --help;^usage: zemva pc FILE .options.\n"
    "0;options set -h;^usage: zemva options set KEY .VALUE. .options.\n"
    "2;help pcc;^zemva: unknown command 'pcc': did you mean 'pc'.\n"
    "2;impotr x;^zemva: unknown command 'impotr': did you mean 'import'.\n"
    "2;con x;^zemva: unknown command 'con': did you mean 'convert'.\n"
    "2;vectoxx x;^zemva: unknown command 'vectoxx': did you mean 'vectors'.\n"
    "2;vectxxx x;^zemva: unknown command 'vectxxx'\n"
    "2;SHO x;^zemva: unknown command 'SHO': did you mean 'show'.\n"
    "2;xy;^zemva: unknown command 'xy'\n"
    "2;stats --al x;^zemva: unknown option '--al': did you mean '--all'.\nusage: zemva stats FILE .options.\n'zemva help stats' says more\n$"
    "2;options ste NCV 5;^zemva: unknown command 'ste': did you mean 'set'.\n"
    "1;info -- --none;^zemva: --none: DIO: File open error. .2004.\n$")
  list(POP_FRONT expected status line regex)
  separate_arguments(words UNIX_COMMAND "${line}")
  run(${status} ${words})
  string(REPLACE "\r\n" "\n" said "${out}${err}")
  expect("${said}" "${regex}")
endforeach()

run(0 help pc)
set(pc "${out}")
run(0 help options)
expect_golden(help.txt "${pc}\n${out}")

# What an installation gives the shell.
says("^.TH ZEMVA 1\n.*\n.SH pc\n.*\n.B .-.-max.-iter N\n" help --as man)
says("\n    \"[*]--output=.the file to write.:value:_files\" .*\n  info. _arguments .*\n    \"[*]--json.writes JSON.\" " help --as zsh)
run(2 help --as html)
find_program(bash bash)
if(bash AND NOT PROGRAM MATCHES "wine")
  execute_process(COMMAND ${PROGRAM} help --as bash OUTPUT_FILE ${WORK}/completion)
  foreach(expected "1;zemva pl;pls plot" "2;zemva pc --comp;--components" "2;zemva options s;set")
    list(POP_FRONT expected position words completion)
    execute_process(OUTPUT_VARIABLE out COMMAND ${bash} -c
      "source ${WORK}/completion; COMP_WORDS=(${words}); COMP_CWORD=${position}; _zemva; echo \${COMPREPLY[@]}")
    expect("${out}" "^${completion}\n$")
  endforeach()
endif()
