# Turns the table of texts into a source file.
add_executable(tvlng_maketable tvlng/maketable.cpp)
target_link_libraries(tvlng_maketable PRIVATE tarvik_options)
set(TVLNG_TABLE ${CMAKE_CURRENT_BINARY_DIR}/tvlng_table.cpp)
add_custom_command(
  OUTPUT ${TVLNG_TABLE}
  COMMAND tvlng_maketable ${CMAKE_CURRENT_SOURCE_DIR}/tvlng/en.tsv ${TVLNG_TABLE}
  DEPENDS tvlng_maketable ${CMAKE_CURRENT_SOURCE_DIR}/tvlng/en.tsv
  VERBATIM)
