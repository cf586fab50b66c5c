# code_block(<text> <language> <number> <variable>): the code block with that number, counted from 1, among
# the blocks in that language of a page.
function(code_block text language number variable)
  foreach(i RANGE 1 ${number})
    string(FIND "${text}" "\n```${language}\n" start)
    if(start EQUAL -1)
      message(FATAL_ERROR "the page has no block ${number} in ${language}")
    endif()
    string(LENGTH "\n```${language}\n" fence)
    math(EXPR start "${start} + ${fence}")
    string(SUBSTRING "${text}" ${start} -1 text)
  endforeach()
  string(FIND "${text}" "```\n" end)
  string(SUBSTRING "${text}" 0 ${end} text)
  set(${variable} "${text}" PARENT_SCOPE)
endfunction()

# count_blocks(<text> <language> <variable>): the number of blocks in that language of a page.
function(count_blocks text language variable)
  string(REGEX MATCHALL "\n```${language}\n" fences "${text}")
  list(LENGTH fences count)
  set(${variable} ${count} PARENT_SCOPE)
endfunction()

# write_blocks(<text> <language> <folder> <variable>): writes each block of a page whose first line is a
# comment with the name of a file, "// Contacts.hpp" or "# drive.py PROGRAM", into that file of the
# folder, and sets the variable to these names. Files that have the same content already stay as they are.
function(write_blocks text language folder variable)
  set(names "")
  count_blocks("${text}" ${language} count)
  foreach(number RANGE ${count})
    if(number GREATER 0)
      code_block("${text}" ${language} ${number} block)
      if(block MATCHES "^(//|#) ([A-Za-z_]+\\.[a-z]+)[: \n]")
        list(APPEND names "${CMAKE_MATCH_2}")
        file(CONFIGURE OUTPUT "${folder}/${CMAKE_MATCH_2}" CONTENT "${block}" @ONLY)
      endif()
    endif()
  endforeach()
  set(${variable} "${names}" PARENT_SCOPE)
endfunction()
