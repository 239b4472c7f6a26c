# Generates a source file from the table of texts, and a header from the names of the texts.
add_library(tvlng_readtable OBJECT tvlng/readTable.cpp)
target_link_libraries(tvlng_readtable PRIVATE tarvik_options)
foreach(maker maketable makenames)
  add_executable(tvlng_${maker} tvlng/${maker}.cpp)
  target_link_libraries(tvlng_${maker} PRIVATE tarvik_options tvlng_readtable)
endforeach()
set(texts ${CMAKE_CURRENT_SOURCE_DIR}/tvlng/en.tsv)
set(names ${CMAKE_CURRENT_SOURCE_DIR}/tvlng/names.tsv)

set(TVLNG_TABLE ${CMAKE_CURRENT_BINARY_DIR}/tvlng_table.cpp)
add_custom_command(
  OUTPUT ${TVLNG_TABLE}
  COMMAND tvlng_maketable ${texts} ${TVLNG_TABLE}
  DEPENDS tvlng_maketable ${texts}
  VERBATIM)

set(text_ids ${CMAKE_BINARY_DIR}/generated/app/text/textId.h)
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/generated/app/text)
add_custom_command(
  OUTPUT ${text_ids}
  COMMAND tvlng_makenames ${texts} ${names} ${text_ids}
  DEPENDS tvlng_makenames ${texts} ${names}
  VERBATIM)
add_custom_target(text_ids DEPENDS ${text_ids})
