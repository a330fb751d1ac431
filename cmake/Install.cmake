# Where the programs and their data go; the program finds its templates in ../share/quillmark beside its own folder.
include(GNUInstallDirs)
install(TARGETS quillmark-colour RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES data/desktop/quillmark-colour.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
if(NOT QUILLMARK_CORE_ONLY)
  install(TARGETS quillmark RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  install(FILES data/desktop/quillmark.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
endif()
install(DIRECTORY data/templates/ DESTINATION ${CMAKE_INSTALL_DATADIR}/quillmark
        FILES_MATCHING PATTERN "*.def" PATTERN "*.hdf")
