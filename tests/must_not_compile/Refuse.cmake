# cmake -D file=<file.cpp> -P Refuse.cmake -- <compiler and flags>
# Compiles a file without and with MUST_NOT_COMPILE and checks that exactly the part behind it is
# refused, with the message that the file demands; see CMakeLists.txt.
set(compile "")
set(found_separator FALSE)
math(EXPR last "${CMAKE_ARGC} - 1")
foreach(index RANGE ${last})
  if(found_separator)
    list(APPEND compile "${CMAKE_ARGV${index}}")
  elseif(CMAKE_ARGV${index} STREQUAL "--")
    set(found_separator TRUE)
  endif()
endforeach()

execute_process(COMMAND ${compile} "${file}"
                RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "Even without the part that must be refused this does not compile:\n${output}")
endif()

execute_process(COMMAND ${compile} -DMUST_NOT_COMPILE "${file}"
                RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
if(result EQUAL 0)
  message(FATAL_ERROR "${file} compiles, and must not.")
endif()

# The compiler names the place of an error as file:line:column, and for an error inside a template
# also the line that uses the template.
file(READ "${file}" text)
string(REPLACE ";" "," text "${text}")
string(REPLACE "[" "(" text "${text}")
string(REPLACE "]" ")" text "${text}")
string(REPLACE "\n" ";" lines "${text}")
set(number 0)
set(is_inside FALSE)
set(points_at_part FALSE)
foreach(line IN LISTS lines)
  math(EXPR number "${number} + 1")
  if(line MATCHES "^#ifdef MUST_NOT_COMPILE")
    set(is_inside TRUE)
  elseif(line MATCHES "^#endif")
    set(is_inside FALSE)
  elseif(is_inside)
    string(FIND "${output}" "${file}:${number}:" place)
    if(NOT place EQUAL -1)
      set(points_at_part TRUE)
    endif()
  endif()
endforeach()
if(NOT points_at_part)
  message(FATAL_ERROR "Refused, but not for the part that must be refused:\n${output}")
endif()

# A line "// Message: text" demands the text in the compiler's first error.
string(REGEX MATCH "error: [^\n]*" output "${output}")
file(STRINGS "${file}" messages REGEX "^// Message: ")
foreach(message IN LISTS messages)
  string(REGEX REPLACE "^// Message: " "" message "${message}")
  string(FIND "${output}" "${message}" place)
  if(place EQUAL -1)
    message(FATAL_ERROR "Refused, but without the message \"${message}\":\n${output}")
  endif()
endforeach()
