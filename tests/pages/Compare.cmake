# Runs the program of a page and compares its output with the page's first block of text. With a number
# `most`, also checks that the page's first block of code has no more lines.
#
#   cmake -D page=... -D program=... [-D most=...] -P Compare.cmake
include("${CMAKE_CURRENT_LIST_DIR}/CodeBlock.cmake")
file(READ "${page}" text)
code_block("${text}" text 1 expected)
execute_process(COMMAND "${program}" OUTPUT_VARIABLE printed COMMAND_ERROR_IS_FATAL ANY)
if(NOT printed STREQUAL expected)
  message(FATAL_ERROR "${page}: the program prints\n${printed}\nand the page says\n${expected}")
endif()
if(most)
  code_block("${text}" cpp 1 code)
  string(REGEX MATCHALL "\n" lines "${code}")
  list(LENGTH lines count)
  if(count GREATER most)
    message(FATAL_ERROR "${page}: the code has ${count} lines; ${most} are the most")
  endif()
endif()
