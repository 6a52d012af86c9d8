# Google Benchmark, the distribution's library.
find_package(benchmark REQUIRED)

# lumarine_bench(NAME SOURCES a_bench.cpp ... LINK lib ...)
#
# One program per area. Benchmarks run on the real clock, and the timings are for people to read: nothing fails on
# them.
function(lumarine_bench name)
  cmake_parse_arguments(BENCH "" "" "SOURCES;LINK" ${ARGN})
  add_executable(${name} ${BENCH_SOURCES})
  target_link_libraries(${name} PRIVATE lumarine_options ${BENCH_LINK} platform_clock platform_system
    benchmark::benchmark_main Threads::Threads)
  target_compile_definitions(${name} PRIVATE LUMARINE_SOURCE_DIR="${CMAKE_SOURCE_DIR}")
  set_property(GLOBAL APPEND PROPERTY LUMARINE_BENCH_PROGRAMS ${name})
endfunction()
