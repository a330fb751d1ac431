# quillmark_folder(NAME SOURCES … [DEPENDS …] [QT])
#
# One static library for one source folder. DEPENDS names the folders that it may include from, which must all stand
# before it in the order of layers; a folder that is not named here cannot be linked, so a wrong include shows at once.
# QT gives the folder the toolkit; without it the folder sees the standard library alone.
function(quillmark_folder name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "QT" "" "SOURCES;DEPENDS")
  add_library(${name} STATIC ${arg_SOURCES})
  target_include_directories(${name} PUBLIC ${CMAKE_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC ${arg_DEPENDS})
  if(arg_QT)
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
    target_compile_definitions(${name} PUBLIC QT_NO_CAST_FROM_ASCII QT_NO_KEYWORDS)
    target_link_libraries(${name} PUBLIC ${QSCINTILLA_LIBRARY} Qt6::Widgets Qt6::Svg)
  endif()
endfunction()
