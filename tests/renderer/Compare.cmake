# Runs the program of the page and compares its output. Also checks that the renderer stays small.
#
#   cmake -D page=... -D program=... -P Compare.cmake
include("${CMAKE_CURRENT_LIST_DIR}/CodeBlock.cmake")
file(READ "${page}" text)
code_block("${text}" cpp 1 renderer)
code_block("${text}" text 1 expected)
execute_process(COMMAND "${program}" OUTPUT_VARIABLE printed COMMAND_ERROR_IS_FATAL ANY)
if(NOT printed STREQUAL expected)
  message(FATAL_ERROR "${page}: the program prints\n${printed}\nand the page says\n${expected}")
endif()
string(REGEX MATCHALL "\n" lines "${renderer}")
list(LENGTH lines count)
if(count GREATER 100)
  message(FATAL_ERROR "${page}: the renderer has ${count} lines; 100 are the most")
endif()
