# Language level, warnings, sanitizers and caches: everything that holds for all targets.
include(CTest)
include(CheckCXXCompilerFlag)
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

find_program(VELMORA_CCACHE ccache)
if(VELMORA_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER "${VELMORA_CCACHE}")
endif()

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual)
if(VELMORA_WERROR)
    add_compile_options(-Werror)
endif()

# What is optimised is what people run, and is hardened as Debian's packages are. Sanitizers and fuzzing bring checks of
# their own. Position independence is asked for by hand: CMake would compile the libraries as parts of a shared one,
# whose functions somebody could replace, and not as parts of a program.
if(CMAKE_BUILD_TYPE MATCHES "^(Release|RelWithDebInfo|MinSizeRel)$" AND NOT VELMORA_SANITIZE AND NOT VELMORA_FUZZ)
    add_compile_options(-fPIE -fstack-protector-strong -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3)
    add_link_options(-pie -Wl,-z,relro,-z,now)
    check_cxx_compiler_flag(-fcf-protection=full VELMORA_HAS_CF_PROTECTION)
    if(VELMORA_HAS_CF_PROTECTION)
        # The start files of Debian's C library carry no mark, for whose sake the linker would drop the program's.
        add_compile_options(-fcf-protection=full)
        add_link_options(-Wl,-z,ibt,-z,shstk)
    endif()
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
pkg_check_modules(SQLITE REQUIRED IMPORTED_TARGET sqlite3)
if(VELMORA_GUI)
    pkg_check_modules(GIO REQUIRED IMPORTED_TARGET gio-2.0)
    pkg_check_modules(GTKMM REQUIRED IMPORTED_TARGET gtkmm-3.0)
endif()
if(BUILD_TESTING)
    find_package(GTest REQUIRED)
endif()
if(VELMORA_BENCH)
    find_package(benchmark REQUIRED)
endif()
