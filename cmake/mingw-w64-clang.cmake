# The Windows build as clang sees it: for clang-tidy, which needs the headers and links nothing.
include(${CMAKE_CURRENT_LIST_DIR}/mingw-w64.cmake)
set(CMAKE_C_COMPILER_TARGET x86_64-w64-windows-gnu)
set(CMAKE_CXX_COMPILER_TARGET x86_64-w64-windows-gnu)
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)

# clang does not find this compiler's C++ library by itself, and would take the host's headers.
execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=include/c++
  OUTPUT_VARIABLE headers OUTPUT_STRIP_TRAILING_WHITESPACE)
set(CMAKE_CXX_FLAGS_INIT "-nostdinc++ -isystem ${headers} -isystem ${headers}/x86_64-w64-mingw32")
set(CMAKE_C_COMPILER clang)
set(CMAKE_CXX_COMPILER clang++)
