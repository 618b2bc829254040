# Where an installed program's files go, by the Linux conventions. The program finds its shipped
# files in <prefix>/share/orvix and keeps the user's store in the user's data folder.
include(GNUInstallDirs)
set(ORVIX_CONDIVISI ${CMAKE_INSTALL_DATADIR}/orvix)
install(TARGETS orvix RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${ORVIX_ARCHIVIO_VUOTO} DESTINATION ${ORVIX_CONDIVISI})
install(DIRECTORY guida/ DESTINATION ${ORVIX_CONDIVISI}/guidaorvix)
install(DIRECTORY modelli/ DESTINATION ${ORVIX_CONDIVISI}/modelli FILES_MATCHING PATTERN "*.wzd")
install(FILES packaging/org.example.orvix.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES packaging/org.example.orvix.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES packaging/org.example.orvix.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(DIRECTORY ${ORVIX_ICONE}/ DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/orvix RENAME copyright)
# Installing (and so cpack) builds nothing: the `orvix` target builds all that is installed, and the
# tests and benchmark, which take far longer, are not needed for a package.
set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME orvix)
set(CPACK_PACKAGE_VENDOR "The Orvix developers")
set(CPACK_PACKAGE_CONTACT "orvix@example.org")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Catalogue personal collections of any kind")
set(CPACK_PACKAGE_DESCRIPTION "Orvix catalogues personal collections (music, films, books, coins,\nminerals): define the fields, place them on a record form, then enter, search,\nprint and export the records. Italian interface; all data in one encrypted file.")
set(CPACK_PACKAGE_HOMEPAGE_URL "https://www.example.org/orvix")
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Qt's own Italian texts for its standard dialogs; the libraries found by shlibdeps are added to it.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-translations-l10n")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_STRIP_FILES ON)
include(CPack)
