# A Debian package, once the two programs are built: cpack --config build/release/CPackConfig.cmake -B build/package
set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON)
include(GNUInstallDirs)

foreach(program IN ITEMS pessoas pessoas-base)
  if(TARGET ${program})
    install(TARGETS ${program} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  endif()
endforeach()
install(FILES packaging/pessoas.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES packaging/vorta-pessoas.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES docs/cep.md docs/instalacao.md docs/manual.md docs/servidor.md DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/vorta-pessoas)
install(DIRECTORY docs/imagens DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/vorta-pessoas)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vorta-pessoas)
set(CPACK_PACKAGE_CONTACT "Nexoria <suporte@nexoria.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Register of persons of the VORTA ERP")
set(CPACK_PACKAGE_DESCRIPTION
    "Keeps the master record of every person that a company deals with and its roles: customer, supplier, carrier, driver, salesperson, \
architect and decorator. Works on Firebird, in the same machine or on a server, and on SQL Server.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION database)
# Libraries are found from the programs themselves; the engine and the drivers are loaded at run time, so they are named here.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "firebird3.0-server-core, firebird3.0-utils")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "libqt6sql6-odbc, tdsodbc, qt6-qpa-plugins")
include(CPack)
