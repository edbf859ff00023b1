# Language level, warnings, sanitizers and caches: everything that holds for all targets.
include(CTest)
include(CheckIPOSupported)

option(VELMORA_GUI "Build the window program (needs gtkmm 3)" ON)
option(VELMORA_BENCH "Build the benchmarks (needs Google Benchmark)" OFF)
option(VELMORA_FUZZ "Build the fuzz targets with libFuzzer (needs clang)" OFF)
option(VELMORA_WERROR "Treat warnings as errors" OFF)
set(VELMORA_SANITIZE "" CACHE STRING "Sanitizers, as given to -fsanitize= (address,undefined or thread)")

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_POSITION_INDEPENDENT_CODE OFF)

find_program(VELMORA_CCACHE ccache)
if(VELMORA_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER "${VELMORA_CCACHE}")
endif()

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual)
if(VELMORA_WERROR)
    add_compile_options(-Werror)
endif()

if(VELMORA_SANITIZE)
    # With a sanitizer the compiler suspects the standard library's own <regex> of reading uninitialised members.
    add_compile_options(-Wno-maybe-uninitialized)
    add_compile_options(-fsanitize=${VELMORA_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    add_link_options(-fsanitize=${VELMORA_SANITIZE})
endif()
if(VELMORA_FUZZ)
    # Coverage for every library; only the fuzz targets themselves link the fuzzer's main.
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()

find_package(Threads REQUIRED)
find_package(PkgConfig REQUIRED)
pkg_check_modules(GLIB REQUIRED IMPORTED_TARGET glib-2.0)
if(VELMORA_GUI)
    pkg_check_modules(GTKMM REQUIRED IMPORTED_TARGET gtkmm-3.0)
endif()
if(BUILD_TESTING)
    find_package(GTest REQUIRED)
endif()
if(VELMORA_BENCH)
    find_package(benchmark REQUIRED)
endif()
