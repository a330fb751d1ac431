# Where the programs and their data go; the programs find their templates in ../share/quillmark beside their own folder.
include(GNUInstallDirs)
set(desktop ${CMAKE_SOURCE_DIR}/data/desktop)
set(completions ${desktop}/completions)

install(TARGETS quillmark-colour RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${desktop}/quillmark-colour.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${desktop}/copyright DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/quillmark)
install(DIRECTORY data/templates/ DESTINATION ${CMAKE_INSTALL_DATADIR}/quillmark
        FILES_MATCHING PATTERN "*.def" PATTERN "*.hdf")
# Shells look a completion up by the program's name; bash's and zsh's files are for both programs.
set(bash_folder ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
install(FILES ${completions}/quillmark.bash DESTINATION ${bash_folder} RENAME quillmark)
install(FILES ${completions}/quillmark.bash DESTINATION ${bash_folder} RENAME quillmark-colour)
install(FILES ${completions}/_quillmark DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions)
install(FILES ${completions}/quillmark-colour.fish DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)

if(NOT QUILLMARK_CORE_ONLY)
  include(Icons)
  install(TARGETS quillmark RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  install(FILES ${CMAKE_BINARY_DIR}/share/quillmark/Quillmark.hlp ${CMAKE_BINARY_DIR}/share/quillmark/Quillmark.qch
          DESTINATION ${CMAKE_INSTALL_DATADIR}/quillmark)
  install(FILES ${desktop}/quillmark.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
  install(FILES ${desktop}/quillmark.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  install(FILES ${desktop}/quillmark.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)
  install(FILES ${desktop}/org.quillmark.quillmark.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
  install(FILES ${completions}/quillmark.fish DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
  install(DIRECTORY ${CMAKE_BINARY_DIR}/icons/ DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
endif()
