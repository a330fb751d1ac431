# The Debian package, by cpack.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quillmark)
set(CPACK_PACKAGE_VENDOR "The Quillmark developers")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "script editor with languages from plain-text templates")
set(CPACK_PACKAGE_DESCRIPTION "Quillmark edits script and program source files. What makes a file look and
behave as a language is not built in: a template, a plain text file, says which
words are coloured, what completes a word, which help belongs to it, how the
file is run and what a new file starts with. Templates for many languages come
with it.

The package also holds quillmark-colour, which prints a coloured file as RTF,
HTML or terminal text and needs no display.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/package)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_SOURCE_DIR}/cmake/DebianDocuments.cmake)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "The Quillmark developers <developers@quillmark.example.org>")
set(CPACK_DEBIAN_PACKAGE_SECTION editors)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# What the help lies in is read by a plugin, which no library names.
set(CPACK_DEBIAN_PACKAGE_DEPENDS libqt6sql6-sqlite)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-wayland, xdg-utils")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "fonts-liberation2")
include(CPack)
