# A Debian package: scripts/package builds the two programs and makes it.
set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON)
include(GNUInstallDirs)

foreach(program IN ITEMS pessoas pessoas-base)
  if(TARGET ${program})
    install(TARGETS ${program} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  endif()
endforeach()
install(FILES packaging/pessoas.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES packaging/vorta-pessoas.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
foreach(size IN ITEMS 16 32 48 256)
  install(FILES packaging/vorta-pessoas-${size}.png RENAME vorta-pessoas.png DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps)
endforeach()
install(FILES docs/administracao.md docs/cep.md docs/conferencia.md docs/importacao.md docs/instalacao.md docs/manual.md docs/seguranca.md
              docs/servidor.md docs/sqlserver.md DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/vorta-pessoas)
install(DIRECTORY docs/imagens DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/vorta-pessoas)
install(FILES packaging/debian/copyright packaging/debian/README.Debian DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/vorta-pessoas)

# install_compressed(FILE NAME FOLDER): as a distribution wants its longer texts, without the time of the machine.
function(install_compressed file name folder)
  set(compressed ${CMAKE_BINARY_DIR}/package-texts/${name}.gz)
  file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/package-texts)
  execute_process(COMMAND gzip -9nc ${CMAKE_SOURCE_DIR}/${file} OUTPUT_FILE ${compressed} COMMAND_ERROR_IS_FATAL ANY)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/${file})
  install(FILES ${compressed} DESTINATION ${CMAKE_INSTALL_DATADIR}/${folder})
endfunction()
install_compressed(packaging/debian/changelog changelog doc/vorta-pessoas)
install_compressed(packaging/man/pessoas.1 pessoas.1 man/man1)
install_compressed(packaging/man/pessoas-base.1 pessoas-base.1 man/man1)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vorta-pessoas)
set(CPACK_PACKAGE_CONTACT "Nexoria <suporte@nexoria.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Register of persons of the VORTA ERP")
set(CPACK_PACKAGE_DESCRIPTION
    "Keeps the master record of every person that a company deals with and its
roles: customer, supplier, carrier, driver, salesperson, architect and
decorator. Works on Firebird, in the same machine or on a server, and on SQL
Server.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION database)
# Libraries are found from the programs themselves; the engine and the drivers are loaded at run time, so they are named here.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The engine's packages carry its version in their names; its header tells that of the client library ("40" for 4.0).
find_file(VORTA_ENGINE_HEADER ibase.h REQUIRED)
file(STRINGS ${VORTA_ENGINE_HEADER} engine REGEX "define FB_API_VER ")
string(REGEX REPLACE ".*FB_API_VER ([0-9]+)([0-9]).*" "\\1.\\2" engine "${engine}")
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libfbclient2, firebird${engine}-server-core, firebird${engine}-utils")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "libqt6sql6-odbc, tdsodbc, qt6-qpa-plugins")
include(CPack)
