# GoogleTest: the distribution's library natively, its sources for Windows.
if(WIN32)
  set(INSTALL_GTEST OFF CACHE BOOL "")
  add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/deps/googletest EXCLUDE_FROM_ALL)
else()
  find_package(GTest REQUIRED)
endif()

# lumarine_test(NAME SOURCES a_test.cpp ... LINK lib ...)
#
# A unit test program of one source folder. It links that folder's library and the ports it needs, nothing
# else: what a folder may know is proven by the linker. Every unit test runs on virtual time. The working
# folder of a run does not matter: LUMARINE_SOURCE_DIR is where the tests find their data.
function(lumarine_test name)
  cmake_parse_arguments(TEST "" "" "SOURCES;LINK" ${ARGN})
  add_executable(${name} ${TEST_SOURCES})
  target_link_libraries(${name} PRIVATE lumarine_options ${TEST_LINK} test_clock platform_system
    GTest::gmock GTest::gtest_main Threads::Threads)
  target_compile_definitions(${name} PRIVATE LUMARINE_SOURCE_DIR="${CMAKE_SOURCE_DIR}")
  # What is tested is built for speed, the tests themselves to be built soon.
  target_compile_options(${name} PRIVATE $<$<CONFIG:Release>:-O1>)
  set_property(GLOBAL APPEND PROPERTY LUMARINE_TEST_PROGRAMS ${name})
  if(NOT WIN32)
    add_test(NAME ${name} COMMAND ${name})
  endif()
endfunction()
