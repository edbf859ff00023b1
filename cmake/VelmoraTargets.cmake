# The three kinds of target that the folders declare.

# velmora_add_library(<folder> [DEPENDS <folder>...] [LINK <target>...])
# Makes velmora_<folder> from all sources of the calling folder. DEPENDS are project folders (public);
# LINK are outside libraries (public).
function(velmora_add_library folder)
    cmake_parse_arguments(ARG "" "" "DEPENDS;LINK" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h)
    add_library(velmora_${folder} STATIC ${sources})
    set_target_properties(velmora_${folder} PROPERTIES LINKER_LANGUAGE CXX)
    target_include_directories(velmora_${folder} PUBLIC "${PROJECT_SOURCE_DIR}")
    list(TRANSFORM ARG_DEPENDS PREPEND velmora_)
    target_link_libraries(velmora_${folder} PUBLIC ${ARG_DEPENDS} ${ARG_LINK})
endfunction()

# velmora_add_test(<name> [LIBS <target>...] [DISPLAY] [LABELS <label>...] [TIMEOUT <seconds>] [SERIAL])
# Makes the GoogleTest program <name> from all *_test.cpp of the calling folder (or SOURCES) and adds it to CTest.
# DISPLAY runs it under a private Xvfb and gives it a main() that starts the toolkit.
function(velmora_add_test name)
    cmake_parse_arguments(ARG "DISPLAY;SERIAL" "TIMEOUT" "LIBS;LABELS;SOURCES" ${ARGN})
    if(NOT ARG_SOURCES)
        file(GLOB ARG_SOURCES CONFIGURE_DEPENDS *_test.cpp)
    endif()
    add_executable(${name} ${ARG_SOURCES})
    target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}")
    if(ARG_DISPLAY)
        target_link_libraries(${name} PRIVATE ${ARG_LIBS} velmora_display_main GTest::gmock GTest::gtest)
        add_test(NAME ${name} COMMAND "${PROJECT_SOURCE_DIR}/tests/support/with-display.sh" $<TARGET_FILE:${name}>)
    else()
        target_link_libraries(${name} PRIVATE ${ARG_LIBS} GTest::gmock GTest::gtest_main)
        add_test(NAME ${name} COMMAND ${name})
        # The sanitizer builds join sources, for the sake of the toolkit's headers. These programs are quick to build
        # without, and their files may go on to call different things by the same short names.
        set_target_properties(${name} PROPERTIES UNITY_BUILD OFF)
    endif()
    if(NOT ARG_TIMEOUT)
        set(ARG_TIMEOUT 300)
    endif()
    set_tests_properties(${name} PROPERTIES TIMEOUT ${ARG_TIMEOUT} LABELS "${ARG_LABELS}"
        SKIP_RETURN_CODE 77
        ENVIRONMENT "VELMORA_SOURCE_DIR=${PROJECT_SOURCE_DIR};VELMORA_BINARY_DIR=${PROJECT_BINARY_DIR}")
    if(ARG_SERIAL)
        set_tests_properties(${name} PROPERTIES RUN_SERIAL ON)
    endif()
endfunction()

# velmora_add_bench(<name> [LIBS <target>...] [SOURCES <file>...])
# Makes the Google Benchmark program <name>.
function(velmora_add_bench name)
    cmake_parse_arguments(ARG "" "" "LIBS;SOURCES" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}")
    target_link_libraries(${name} PRIVATE ${ARG_LIBS} benchmark::benchmark)
endfunction()
