# Language level, warnings and output folders of the build, in the interface target tarvik_options.

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
  # The precompiled headers are large: without the inode cache they are hashed again for every source, and a full build
  # takes a quarter longer.
  set(CMAKE_CXX_COMPILER_LAUNCHER
      ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
      CCACHE_INODECACHE=1 CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_NOHASHDIR=1 ${CCACHE_PROGRAM})
endif()

# Links the test programs, which are large and many, in a fraction of the time.
find_program(MOLD_PROGRAM mold)
if(MOLD_PROGRAM AND NOT MSVC)
  add_link_options(-fuse-ld=mold)
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
  # Makes -Wconversion mean the same as with GCC.
  target_compile_options(tarvik_options INTERFACE -Wno-sign-conversion)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # False positives of GCC 12 in optimised copies of short strings; the other builds keep these warnings.
  target_compile_options(
    tarvik_options INTERFACE "$<$<CONFIG:Release>:-Wno-array-bounds;-Wno-restrict;-Wno-stringop-overflow;-Wno-stringop-overread>")
  # Lets ccache distinguish precompiled headers.
  target_compile_options(tarvik_options INTERFACE -fpch-preprocess)
endif()
if(TARVIK_SANITIZE)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # False positives caused by the code of the sanitizers, in the standard library too.
    target_compile_options(tarvik_options INTERFACE -Wno-maybe-uninitialized)
  endif()
  # Not an interface option, so that the tests can turn it off.
  add_compile_options(-fsanitize=undefined)
  target_compile_options(tarvik_options INTERFACE -fsanitize=address -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(tarvik_options INTERFACE -fsanitize=address,undefined)
endif()
if(TARVIK_FUZZ)
  target_compile_options(tarvik_options INTERFACE -fsanitize=fuzzer-no-link,address,undefined
                                                  -fno-sanitize-recover=all)
  target_link_options(tarvik_options INTERFACE -fsanitize=address,undefined)
endif()

# All executables, modules and the help are built into one folder, as they are installed.
set(TARVIK_BIN_DIR ${CMAKE_BINARY_DIR}/bin)

# Builds an executable or module into that folder and installs it.
function(tarvik_place target)
  set_target_properties(${target} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${TARVIK_BIN_DIR} LIBRARY_OUTPUT_DIRECTORY
                                                                                         ${TARVIK_BIN_DIR})
  install(TARGETS ${target} RUNTIME DESTINATION . LIBRARY DESTINATION .)
endfunction()
