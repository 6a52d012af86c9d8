# Libraries from the distribution. scripts/setup installs every one of them.

include(LumarineIncludes)

find_package(Threads REQUIRED)
find_package(ZLIB REQUIRED)
add_library(lumarine_zlib INTERFACE)
target_link_libraries(lumarine_zlib INTERFACE ZLIB::ZLIB)

if(WIN32)
  # The Windows build takes hidapi from the distribution's source package (scripts/setup unpacks it) and the
  # header-only libraries from the native packages, through a folder that holds nothing else.
  set(HIDAPI_SOURCE ${CMAKE_SOURCE_DIR}/build/deps/hidapi-0.13.1 CACHE PATH "hidapi 0.13 sources")
  set(HIDAPI_WITH_TESTS OFF CACHE BOOL "")
  set(BUILD_SHARED_LIBS OFF)
  add_subdirectory(${HIDAPI_SOURCE} ${CMAKE_BINARY_DIR}/deps/hidapi EXCLUDE_FROM_ALL)
  add_library(lumarine_hidapi_headers INTERFACE)
  target_include_directories(lumarine_hidapi_headers SYSTEM INTERFACE ${CMAKE_BINARY_DIR}/deps/include)
  file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/deps/include)
  file(CREATE_LINK ${HIDAPI_SOURCE}/hidapi ${CMAKE_BINARY_DIR}/deps/include/hidapi SYMBOLIC)
  file(CREATE_LINK /usr/include/CLI ${CMAKE_BINARY_DIR}/deps/include/CLI SYMBOLIC)
  file(CREATE_LINK /usr/include/nlohmann ${CMAKE_BINARY_DIR}/deps/include/nlohmann SYMBOLIC)
  add_library(lumarine_cli11 INTERFACE)
  target_include_directories(lumarine_cli11 SYSTEM INTERFACE ${CMAKE_BINARY_DIR}/deps/include)
  add_library(lumarine_json INTERFACE)
  target_include_directories(lumarine_json SYSTEM INTERFACE ${CMAKE_BINARY_DIR}/deps/include)
  add_library(lumarine_hidapi INTERFACE)
  target_link_libraries(lumarine_hidapi INTERFACE lumarine_hidapi_headers hidapi_winapi)
else()
  find_package(PkgConfig REQUIRED)
  # hidraw and not libusb: the kernel's driver stays attached, and one udev rule opens the device to users.
  pkg_check_modules(HIDAPI REQUIRED hidapi-hidraw)
  # pkg-config points into hidapi/ itself; the sources include <hidapi/hidapi.h>, which /usr/include has.
  add_library(lumarine_hidapi_headers INTERFACE)
  add_library(lumarine_hidapi INTERFACE)
  target_link_libraries(lumarine_hidapi INTERFACE ${HIDAPI_LINK_LIBRARIES})
  add_library(lumarine_cli11 INTERFACE)
  add_library(lumarine_json INTERFACE)
endif()

lumarine_includable(lumarine_hidapi_headers hidapi/)
lumarine_includable(lumarine_cli11 CLI/)
lumarine_includable(lumarine_json nlohmann/)
lumarine_includable(lumarine_zlib zlib.h)
