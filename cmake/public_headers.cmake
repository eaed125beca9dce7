# zemva_public_headers(RESULT BASE HEADER...)
#
# Sets RESULT to the full names of the HEADERs and of all headers that they reach by
# #include "...", which is always written from the folder BASE. These are the public ones: what a
# caller can include is what gets installed, without a second list to keep. CMake runs again when
# one of them has changed.
function(zemva_public_headers result base)
  set(found)
  set(pending ${ARGN})
  while(pending)
    list(POP_FRONT pending header)
    if(NOT "${base}/${header}" IN_LIST found)
      list(APPEND found "${base}/${header}")
      file(STRINGS "${base}/${header}" includes REGEX "^#include \"")
      list(TRANSFORM includes REPLACE "^#include \"([^\"]+)\".*" "\\1")
      list(APPEND pending ${includes})
    endif()
  endwhile()
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${found})
  set(${result} ${found} PARENT_SCOPE)
endfunction()
