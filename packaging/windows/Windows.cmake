# Programs for Windows, built elsewhere: scripts/windows does it.

# No path of the building machine stands in what is built.
add_compile_options(-ffile-prefix-map=${CMAKE_SOURCE_DIR}=. -ffile-prefix-map=${CMAKE_BINARY_DIR}=build)
add_link_options(-Wl,--no-insert-timestamp)
add_compile_definitions(UNICODE _UNICODE)

# The programs of the tests can be asked for their tests only where they run.
set(CMAKE_GTEST_DISCOVER_TESTS_DISCOVERY_MODE PRE_TEST)
if(NOT TARGET GTest::gtest)
  add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
endif()

# describe_program(PROGRAM WORDS): gives a program its icon, its version and what it tells the system of itself.
function(describe_program program words)
  set(icon ${VORTA_ICON})
  set(manifest ${PROJECT_SOURCE_DIR}/packaging/windows/program.manifest)
  configure_file(${PROJECT_SOURCE_DIR}/packaging/windows/program.rc.in ${CMAKE_BINARY_DIR}/resources/${program}.rc @ONLY)
  target_sources(${program} PRIVATE ${CMAKE_BINARY_DIR}/resources/${program}.rc)
endfunction()
