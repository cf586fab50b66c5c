# cmake -D build=… -D work=… -D compiler=… -D generator=… -P BuildHost.cmake
function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${ARGN}\nended with ${result}:\n${output}")
  endif()
  set(output "${output}" PARENT_SCOPE)
endfunction()

file(REMOVE_RECURSE "${work}")
run("${CMAKE_COMMAND}" --install "${build}" --prefix "${work}/prefix")
# What a library keeps to itself must not be there to be included; what it offers must.
foreach(header VemraGoalSurface/GoalOutcomeRecordingControl.hpp VemraPlatform/text/KeyedHash.hpp
        VemraPlatform/ui/Rows.hpp)
  if(EXISTS "${work}/prefix/include/${header}")
    message(FATAL_ERROR "${header} is installed, and is nobody's but its library's")
  endif()
endforeach()
if(NOT EXISTS "${work}/prefix/include/VemraGoalSurface/GoalResultView.hpp")
  message(FATAL_ERROR "the headers are not where they are looked for")
endif()
run("${CMAKE_COMMAND}" -S "${CMAKE_CURRENT_LIST_DIR}/host" -B "${work}/host" -G "${generator}"
    "-DCMAKE_CXX_COMPILER=${compiler}" "-DCMAKE_PREFIX_PATH=${work}/prefix")
run("${CMAKE_COMMAND}" --build "${work}/host")
run("${work}/host/host")
foreach(line "Recorded for p1: Was useful\n" "\"Find a design lead\"" "\"Ada\"")
  string(FIND "${output}" "${line}" place)
  if(place EQUAL -1)
    message(FATAL_ERROR "the host's output does not contain ${line}:\n${output}")
  endif()
endforeach()

# A host with a window may use Qt's keywords, and include every header that is installed after them.
file(GLOB_RECURSE headers RELATIVE "${work}/prefix/include" "${work}/prefix/include/*.hpp")
list(TRANSFORM headers REPLACE "(.+)" "#include \"\\1\"")
list(JOIN headers "\n" headers)
file(WRITE "${work}/every_header.hpp" "#include <iostream>\n#include <QtWidgets/QtWidgets>\n${headers}\n")
run("${CMAKE_COMMAND}" -S "${CMAKE_CURRENT_LIST_DIR}/window" -B "${work}/window" -G "${generator}"
    "-DCMAKE_CXX_COMPILER=${compiler}" "-DCMAKE_PREFIX_PATH=${work}/prefix"
    "-DVEMRA_EVERY_HEADER=${work}/every_header.hpp")
run("${CMAKE_COMMAND}" --build "${work}/window")
run("${CMAKE_COMMAND}" -E env QT_QPA_PLATFORM=offscreen "${work}/window/window")
if(NOT output MATCHES "Opened: p1\n")
  message(FATAL_ERROR "the host's window does not answer:\n${output}")
endif()

# The headers must come from the installed copy alone.
file(GLOB_RECURSE dependencies "${work}/host/*.ninja" "${work}/host/CMakeCache.txt"
     "${work}/window/*.ninja" "${work}/window/CMakeCache.txt")
get_filename_component(repository "${CMAKE_CURRENT_LIST_DIR}/../.." ABSOLUTE)
foreach(file IN LISTS dependencies)
  file(STRINGS "${file}" lines REGEX "-I${repository}( |$)")
  if(lines)
    message(FATAL_ERROR "the host looks for headers in the repository: ${lines}")
  endif()
endforeach()
