# GoogleTest: a library natively, the distribution's sources for Windows from Linux.
if(WIN32 AND CMAKE_CROSSCOMPILING)
  set(INSTALL_GTEST OFF CACHE BOOL "")
  add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/deps/googletest EXCLUDE_FROM_ALL)
else()
  find_package(GTest REQUIRED)
endif()

# What the sources of tests are compiled with.
function(lumarine_test_options target)
  target_link_libraries(${target} PRIVATE lumarine_options)
  target_compile_definitions(${target} PRIVATE LUMARINE_SOURCE_DIR="${CMAKE_SOURCE_DIR}")
  # GCC sees faults in std::string that are none, and where it is precompiled no longer knows it as the system's.
  target_compile_options(${target} PRIVATE
    "$<$<CXX_COMPILER_ID:GNU>:-Wno-array-bounds;-Wno-restrict;-Wno-stringop-overflow;-Wno-stringop-overread>")
endfunction()

# What is tested is built for speed, the tests themselves to be built soon. Not what is linked before the ports: inline
# functions are taken from the first who has them, and what is built for speed must not get those of the others.
function(lumarine_test_built_soon target)
  target_compile_options(${target} PRIVATE $<$<CONFIG:Release>:-O1>)
endfunction()

if(TARGET gtest)
  lumarine_test_built_soon(gtest)
  lumarine_test_built_soon(gmock)
endif()

# What every test includes, compiled once.
add_library(test_headers OBJECT ${CMAKE_SOURCE_DIR}/tests/support/test_headers.cpp)
lumarine_test_built_soon(test_headers)
lumarine_test_options(test_headers)
target_link_libraries(test_headers PRIVATE GTest::gmock Threads::Threads)
target_precompile_headers(test_headers PRIVATE <gmock/gmock.h> <gtest/gtest.h>)

# lumarine_test_fixture(NAME SOURCES a.cpp ... [LINK lib ...])
#
# What several test programs share, compiled once. An object library, as a port is: whoever names it has all of it.
function(lumarine_test_fixture name)
  cmake_parse_arguments(FIXTURE "" "" "SOURCES;LINK" ${ARGN})
  add_library(${name} OBJECT ${FIXTURE_SOURCES})
  lumarine_test_options(${name})
  target_link_libraries(${name} PUBLIC ${FIXTURE_LINK} PRIVATE GTest::gmock Threads::Threads)
endfunction()

# lumarine_test(NAME SOURCES a_test.cpp ... [ROOM lib] [LINK lib ...] [THREADS [BUT filter]])
#
# A unit test program of one source folder. It links that folder's library and the ports it needs, nothing
# else: what a folder may know is proven by the linker. Every unit test runs on virtual time. The working
# folder of a run does not matter: LUMARINE_SOURCE_DIR is where the tests find their data.
# ROOM: a library of which all objects are linked, not only those that the tests call. So the linker finds whatever the
# library uses and does not link.
# THREADS: it starts some, so it runs under the thread sanitizer too; BUT names those of its tests that start none and
# take long there.
function(lumarine_test name)
  cmake_parse_arguments(TEST "THREADS" "BUT;ROOM" "SOURCES;LINK" ${ARGN})
  if(TEST_ROOM)
    list(APPEND TEST_LINK $<LINK_LIBRARY:WHOLE_ARCHIVE,${TEST_ROOM}>)
  endif()
  add_executable(${name} ${TEST_SOURCES})
  lumarine_test_built_soon(${name})
  lumarine_test_options(${name})
  # GoogleMock behind our own: before them it would have them resolve the parts of std::string that it lacks.
  target_link_libraries(${name} PRIVATE ${TEST_LINK} test_clock platform_system
    GTest::gmock GTest::gtest_main Threads::Threads)
  target_precompile_headers(${name} REUSE_FROM test_headers)
  lumarine_add_test(${name} LABEL unit COMMAND ${name})
  if(TEST_THREADS)
    set_property(TEST ${name} APPEND PROPERTY LABELS threads)
    add_dependencies(threaded_tests ${name})
    if(TEST_BUT AND LUMARINE_SANITIZE STREQUAL thread)
      set_tests_properties(${name} PROPERTIES ENVIRONMENT_MODIFICATION "GTEST_FILTER=string_append:-${TEST_BUT}")
    endif()
  endif()
endfunction()

# Those with THREADS.
add_custom_target(threaded_tests)
