#[[
Counts the lines of the sources below a folder and writes a report.

  cmake -DFOLDER=src -DWIDTH=40 -P report.cmake
]]

cmake_minimum_required(VERSION 3.20)

# What is counted: a name and the endings of its files.
set(KINDS "C++" "Python" "CMake")
set(ENDINGS_C++ *.cpp *.h)
set(ENDINGS_Python *.py)
set(ENDINGS_CMake *.cmake CMakeLists.txt)

if(NOT DEFINED FOLDER)
  get_filename_component(FOLDER "${CMAKE_CURRENT_LIST_DIR}/.." ABSOLUTE)
endif()
if(NOT IS_DIRECTORY "${FOLDER}")
  message(FATAL_ERROR "There is no folder ${FOLDER}.")
endif()
if(NOT WIDTH MATCHES "^[0-9]+$" OR WIDTH LESS 10)
  set(WIDTH 30)
endif()

# count_lines(<variable> <file>)
function(count_lines variable file)
  file(STRINGS "${file}" lines ENCODING UTF-8)
  list(LENGTH lines count)
  set(${variable} ${count} PARENT_SCOPE)
endfunction()

# draw_bar(<variable> VALUE <n> MOST <n> [SIGN <character>])
function(draw_bar variable)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "VALUE;MOST;SIGN" "")
  if(NOT arg_SIGN)
    set(arg_SIGN "=")
  endif()
  math(EXPR length "${arg_VALUE} * ${WIDTH} / (${arg_MOST} + 1)" OUTPUT_FORMAT DECIMAL)
  string(REPEAT "${arg_SIGN}" ${length} bar)
  set(${variable} "${bar}" PARENT_SCOPE)
endfunction()

set(total 0)
set(most 0)
foreach(kind IN LISTS KINDS)
  set(lines_${kind} 0)
  set(patterns ${ENDINGS_${kind}})
  list(TRANSFORM patterns PREPEND "${FOLDER}/")
  file(GLOB_RECURSE files LIST_DIRECTORIES FALSE ${patterns})
  list(FILTER files EXCLUDE REGEX "/(build|\\.git)/")
  foreach(file ${files})
    count_lines(count "${file}")
    math(EXPR lines_${kind} "${lines_${kind}} + ${count}")
  endforeach()
  math(EXPR total "${total} + ${lines_${kind}}")
  if(lines_${kind} GREATER most)
    set(most ${lines_${kind}})
  endif()
endforeach()

set(report "Lines below ${FOLDER}:\n")
foreach(kind IN LISTS KINDS)
  draw_bar(bar VALUE ${lines_${kind}} MOST ${most})
  string(APPEND report "  ${kind}\t${lines_${kind}}\t|${bar}\n")
endforeach()
string(TIMESTAMP now "%Y-%m-%d" UTC)
string(APPEND report [=[
It's all counted; "blank" lines and comments, too.
]=])

message(STATUS "${report}")
if(DEFINED ENV{REPORT_FILE})
  file(WRITE "$ENV{REPORT_FILE}" "${now}\n${report}")
elseif(CMAKE_SCRIPT_MODE_FILE AND UNIX)
  execute_process(COMMAND ${CMAKE_COMMAND} -E echo "Total: ${total}" OUTPUT_VARIABLE said
                  OUTPUT_STRIP_TRAILING_WHITESPACE)
  message("${said}")
endif()

# A target could be given the report at build time, too:
#   add_custom_target(report COMMAND ${CMAKE_COMMAND} -DFOLDER=$<TARGET_PROPERTY:app,SOURCE_DIR> -P report.cmake VERBATIM)
