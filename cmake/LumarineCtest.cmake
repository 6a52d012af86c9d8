# Everything that can be tested is a test of ctest's, with a label: docs/testing.md tells which there are.

# Seconds that a test may take.
set(LUMARINE_TEST_TIMEOUT 1200 CACHE STRING "Seconds that a test may take")

# lumarine_add_test(NAME LABEL label COMMAND program [argument ...])
#
# A program of GoogleTest, a shell script that sources tests/support/checks.sh, or any other command that fails by its
# exit status. The first two leave what they counted in test-results/NAME.xml below the build folder.
function(lumarine_add_test name)
  cmake_parse_arguments(CHECK "" "LABEL" "COMMAND" ${ARGN})
  add_test(NAME ${name} COMMAND ${CHECK_COMMAND} WORKING_DIRECTORY ${CMAKE_BINARY_DIR})
  set_tests_properties(${name} PROPERTIES
    LABELS ${CHECK_LABEL}
    # A relative path, since it is read under Wine too.
    ENVIRONMENT GTEST_OUTPUT=xml:test-results/${name}.xml
    SKIP_RETURN_CODE 77
    TIMEOUT ${LUMARINE_TEST_TIMEOUT})
  if(CMAKE_CROSSCOMPILING AND WIN32)
    set_tests_properties(${name} PROPERTIES FIXTURES_REQUIRED session)
  endif()
endfunction()

# Programs of Windows run in a session that begins before the first of them and ends after the last.
if(CMAKE_CROSSCOMPILING AND WIN32)
  add_test(NAME session_begins COMMAND ${CMAKE_SOURCE_DIR}/scripts/wine-session begin)
  add_test(NAME session_ends COMMAND ${CMAKE_SOURCE_DIR}/scripts/wine-session end)
  set_tests_properties(session_begins PROPERTIES FIXTURES_SETUP session)
  set_tests_properties(session_ends PROPERTIES FIXTURES_CLEANUP session)
endif()
