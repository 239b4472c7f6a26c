# Language level, warnings and places of the build, in one interface target.

option(TARVIK_TESTS "Build the tests" ON)
option(TARVIK_FUZZ "Build the fuzz targets (needs clang)" OFF)
option(TARVIK_BENCH "Build the benchmarks (needs Google Benchmark)" OFF)
option(TARVIK_SANITIZE "Build with the address and undefined behaviour sanitizers" OFF)

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
  # The precompiled headers are large: without the cache of inodes each of them is hashed for every source anew, and a
  # build from nothing takes a quarter longer.
  set(CMAKE_CXX_COMPILER_LAUNCHER
      ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
      CCACHE_INODECACHE=1 CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_NOHASHDIR=1 ${CCACHE_PROGRAM})
endif()

add_library(tarvik_options INTERFACE)
target_include_directories(tarvik_options INTERFACE ${CMAKE_SOURCE_DIR})
target_compile_definitions(tarvik_options INTERFACE QT_NO_CAST_FROM_BYTEARRAY QT_NO_KEYWORDS QT_NO_FOREACH)
if(MSVC)
  target_compile_options(tarvik_options INTERFACE /W4 /WX /utf-8)
else()
  target_compile_options(tarvik_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
endif()
if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
  # The same meaning of -Wconversion as with the other compiler.
  target_compile_options(tarvik_options INTERFACE -Wno-sign-conversion)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # GCC 12 sees overflows in optimised copies of short strings where there are none; the other builds keep the checks.
  target_compile_options(
    tarvik_options INTERFACE "$<$<CONFIG:Release>:-Wno-array-bounds;-Wno-restrict;-Wno-stringop-overflow;-Wno-stringop-overread>")
  # A precompiled header that ccache can tell apart.
  target_compile_options(tarvik_options INTERFACE -fpch-preprocess)
endif()
if(TARVIK_SANITIZE)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # The sanitizers' own code misleads this check, in the standard library's headers too.
    target_compile_options(tarvik_options INTERFACE -Wno-maybe-uninitialized)
  endif()
  target_compile_options(tarvik_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                  -fno-omit-frame-pointer)
  target_link_options(tarvik_options INTERFACE -fsanitize=address,undefined)
endif()
if(TARVIK_FUZZ)
  target_compile_options(tarvik_options INTERFACE -fsanitize=fuzzer-no-link,address,undefined
                                                  -fno-sanitize-recover=all)
  target_link_options(tarvik_options INTERFACE -fsanitize=address,undefined)
endif()

# Everything that runs stands in one folder, as it does when installed: executables, modules, help.
set(TARVIK_BIN_DIR ${CMAKE_BINARY_DIR}/bin)

# Puts an executable or module into that folder, built and installed.
function(tarvik_place target)
  set_target_properties(${target} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${TARVIK_BIN_DIR} LIBRARY_OUTPUT_DIRECTORY
                                                                                         ${TARVIK_BIN_DIR})
  install(TARGETS ${target} RUNTIME DESTINATION . LIBRARY DESTINATION .)
endfunction()
