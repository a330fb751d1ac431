# Compiles the project in PAGES with GENERATOR, which needs no display and talks only when it fails.
set(ENV{QT_QPA_PLATFORM} offscreen)
execute_process(COMMAND ${GENERATOR} ${PAGES}/Quillmark.qhcp -o ${PAGES}/Quillmark.hlp
                RESULT_VARIABLE result OUTPUT_VARIABLE said ERROR_VARIABLE said)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "${said}")
endif()
