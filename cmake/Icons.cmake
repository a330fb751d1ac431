# The program's icon in the sizes of the hicolor theme, drawn from the one SVG; target "icons", below build/icons.
find_program(RSVG_CONVERT rsvg-convert REQUIRED DOC "Draws the icon's sizes; Debian package librsvg2-bin")
set(drawing ${CMAKE_SOURCE_DIR}/data/desktop/quillmark.svg)
set(scalable ${CMAKE_BINARY_DIR}/icons/scalable/apps/quillmark.svg)
add_custom_command(OUTPUT ${scalable} DEPENDS ${drawing}
                   COMMAND ${CMAKE_COMMAND} -E copy ${drawing} ${scalable})
set(pictures ${scalable})
foreach(size 16 22 24 32 48 64 96 128 256)
  set(folder ${CMAKE_BINARY_DIR}/icons/${size}x${size}/apps)
  add_custom_command(OUTPUT ${folder}/quillmark.png DEPENDS ${drawing}
                     COMMAND ${CMAKE_COMMAND} -E make_directory ${folder}
                     COMMAND ${RSVG_CONVERT} --width ${size} --height ${size} --output ${folder}/quillmark.png ${drawing})
  list(APPEND pictures ${folder}/quillmark.png)
endforeach()
add_custom_target(icons ALL DEPENDS ${pictures})
