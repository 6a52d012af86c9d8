# Which header a folder's sources may include, as the libraries that it links say. A folder is one with a library or a
# port of its own in its CMakeLists.txt.

# lumarine_includable(TARGET HEADER...)
#
# Who links the target may include these: paths from the project's root, or of a library that is not ours. One that
# ends with a slash stands for all below it.
function(lumarine_includable target)
  set_property(TARGET ${target} APPEND PROPERTY LUMARINE_INCLUDABLE ${ARGN})
endfunction()

# lumarine_judged(TARGET [LIBRARY...])
#
# The target's folder keeps to the rule. It may include what the target links, as far as CMake passes it on, and the
# LIBRARIES, which it does not link itself.
function(lumarine_judged target)
  set_property(GLOBAL APPEND PROPERTY LUMARINE_JUDGED ${target})
  set_property(TARGET ${target} PROPERTY LUMARINE_KNOWS ${ARGN})
endfunction()

# lumarine_write_include_rule(FILE)
#
# Writes the rule, for tests/frame: a line "FOLDER HEADER ..." a target. To be called when every library is there.
function(lumarine_write_include_rule file)
  get_property(targets GLOBAL PROPERTY LUMARINE_JUDGED)
  set(lines)
  foreach(target IN LISTS targets)
    get_property(folder TARGET ${target} PROPERTY SOURCE_DIR)
    cmake_path(RELATIVE_PATH folder BASE_DIRECTORY ${CMAKE_SOURCE_DIR})
    get_property(linked TARGET ${target} PROPERTY LINK_LIBRARIES)
    get_property(known TARGET ${target} PROPERTY LUMARINE_KNOWS)
    set(ahead ${target} ${linked} ${known})
    set(line ${folder})
    set(seen)
    while(NOT ahead STREQUAL "")
      list(POP_FRONT ahead next)
      # What is not passed on is wrapped in an expression, and so no target.
      if(NOT TARGET "${next}" OR next IN_LIST seen)
        continue()
      endif()
      list(APPEND seen ${next})
      get_property(headers TARGET ${next} PROPERTY LUMARINE_INCLUDABLE)
      list(APPEND line ${headers})
      get_property(passed_on TARGET ${next} PROPERTY INTERFACE_LINK_LIBRARIES)
      list(APPEND ahead ${passed_on})
    endwhile()
    list(JOIN line " " line)
    list(APPEND lines "${line}")
  endforeach()
  list(JOIN lines "\n" lines)
  file(CONFIGURE OUTPUT ${file} CONTENT "${lines}\n" @ONLY)
endfunction()
