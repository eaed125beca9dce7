# What every target of this project is compiled with.
#
# The order and precision of floating-point sums is part of a model's result: no contraction into
# fused operations, and on 32-bit x86 SSE2 arithmetic in place of the x87 registers, whose wider
# intermediate results would differ from the 64-bit build in the last digits.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_C_STANDARD 11)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "Build type" FORCE)
endif()

add_library(zemva_compile_options INTERFACE)
target_compile_options(zemva_compile_options INTERFACE
  -ffp-contract=off -Wall -Wextra -Wpedantic -Wconversion -Wshadow
  $<$<BOOL:${ZEMVA_WERROR}>:-Werror>)
if(ZEMVA_FUZZ)
  target_compile_options(zemva_compile_options INTERFACE -fsanitize=fuzzer-no-link)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # Warns of overlapping memory in every "literal" + std::string.
  target_compile_options(zemva_compile_options INTERFACE $<$<COMPILE_LANGUAGE:CXX>:-Wno-restrict>)
endif()
if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(i[3-6]86|x86)$" OR CMAKE_SIZEOF_VOID_P EQUAL 4)
  target_compile_options(zemva_compile_options INTERFACE -msse2 -mfpmath=sse)
endif()
if(WIN32)
  target_link_options(zemva_compile_options INTERFACE -static)
endif()
