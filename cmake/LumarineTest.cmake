# GoogleTest: the distribution's library natively, its sources for Windows.
if(WIN32)
  set(INSTALL_GTEST OFF CACHE BOOL "")
  add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/deps/googletest EXCLUDE_FROM_ALL)
else()
  find_package(GTest REQUIRED)
endif()

# What a test program is compiled with: what is tested is built for speed, the tests themselves to be built soon.
function(lumarine_test_options target)
  target_link_libraries(${target} PRIVATE lumarine_options)
  target_compile_definitions(${target} PRIVATE LUMARINE_SOURCE_DIR="${CMAKE_SOURCE_DIR}")
  target_compile_options(${target} PRIVATE $<$<CONFIG:Release>:-O1>
    # GCC sees faults in std::string that are none, and where it is precompiled no longer knows it as the system's.
    "$<$<CXX_COMPILER_ID:GNU>:-Wno-array-bounds;-Wno-restrict;-Wno-stringop-overflow;-Wno-stringop-overread>")
endfunction()

# What every test includes, compiled once.
add_library(test_headers OBJECT ${CMAKE_SOURCE_DIR}/tests/support/test_headers.cpp)
lumarine_test_options(test_headers)
target_link_libraries(test_headers PRIVATE GTest::gmock Threads::Threads)
target_precompile_headers(test_headers PRIVATE <gmock/gmock.h> <gtest/gtest.h>)

# lumarine_test(NAME SOURCES a_test.cpp ... LINK lib ...)
#
# A unit test program of one source folder. It links that folder's library and the ports it needs, nothing
# else: what a folder may know is proven by the linker. Every unit test runs on virtual time. The working
# folder of a run does not matter: LUMARINE_SOURCE_DIR is where the tests find their data.
function(lumarine_test name)
  cmake_parse_arguments(TEST "" "" "SOURCES;LINK" ${ARGN})
  add_executable(${name} ${TEST_SOURCES})
  lumarine_test_options(${name})
  # GoogleMock behind our own: before them it would have them resolve the parts of std::string that it lacks.
  target_link_libraries(${name} PRIVATE ${TEST_LINK} test_clock platform_system
    GTest::gmock GTest::gtest_main Threads::Threads)
  target_precompile_headers(${name} REUSE_FROM test_headers)
  set_property(GLOBAL APPEND PROPERTY LUMARINE_TEST_PROGRAMS ${name})
  if(NOT WIN32)
    add_test(NAME ${name} COMMAND ${name})
  endif()
endfunction()
