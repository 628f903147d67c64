# The kinds of targets that the folders' CMakeLists.txt declare. Sources are listed, never globbed.

find_package(Threads REQUIRED)

# tarnwick_library(<folder> DEPENDS <folder>... SOURCES <file>...)
#
# The static library tarnwick_<folder>. A folder of headers alone becomes an interface library,
# so that others can depend on it before its first .cpp file is written.
function(tarnwick_library folder)
    cmake_parse_arguments(ARG "" "" "DEPENDS;SOURCES" ${ARGN})
    list(TRANSFORM ARG_DEPENDS PREPEND tarnwick_)
    set(target tarnwick_${folder})
    if(ARG_SOURCES)
        add_library(${target} STATIC ${ARG_SOURCES})
        set(visibility PUBLIC)
    else()
        add_library(${target} INTERFACE)
        set(visibility INTERFACE)
    endif()
    target_include_directories(${target} ${visibility}
        ${PROJECT_SOURCE_DIR}/src ${PROJECT_BINARY_DIR}/generated)
    target_link_libraries(${target} ${visibility} ${ARG_DEPENDS} Threads::Threads)
endfunction()

# tarnwick_program(<name> DEPENDS <folder>... SOURCES <file>...)
function(tarnwick_program name)
    cmake_parse_arguments(ARG "" "" "DEPENDS;SOURCES" ${ARGN})
    if(NOT ARG_SOURCES)
        message(STATUS "${name}: no sources yet")
        return()
    endif()
    list(TRANSFORM ARG_DEPENDS PREPEND tarnwick_)
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE ${ARG_DEPENDS})
endfunction()

# tarnwick_test(<folder> DEPENDS <folder>... SOURCES <file>...)
#
# The executable tarnwick_<folder>_tests and one ctest entry for each of its tests. The name of a
# suite chooses its ctest label: Slow... is `slow`, Threads... is `threads`, any other is `unit`.
function(tarnwick_test folder)
    cmake_parse_arguments(ARG "" "" "DEPENDS;SOURCES" ${ARGN})
    if(NOT ARG_SOURCES)
        return()
    endif()
    list(TRANSFORM ARG_DEPENDS PREPEND tarnwick_)
    set(target tarnwick_${folder}_tests)
    add_executable(${target} ${ARG_SOURCES})
    target_link_libraries(${target} PRIVATE
        tarnwick_test_support ${ARG_DEPENDS} GTest::gmock GTest::gtest GTest::gtest_main)
    target_precompile_headers(${target} REUSE_FROM tarnwick_test_support)
    _tarnwick_discover(${target} unit "-Slow*:*/Slow*:Threads*:*/Threads*" 120)
    _tarnwick_discover(${target} slow "Slow*:*/Slow*" 1800)
    _tarnwick_discover(${target} threads "Threads*:*/Threads*" 600)
endfunction()

# Lists the tests when ctest starts, so that a build never runs a program.
function(_tarnwick_discover target label filter seconds)
    gtest_discover_tests(${target}
        TEST_FILTER "${filter}"
        TEST_LIST ${target}_${label}
        NO_PRETTY_VALUES
        DISCOVERY_MODE PRE_TEST
        DISCOVERY_TIMEOUT 60
        PROPERTIES LABELS ${label} TIMEOUT ${seconds})
endfunction()

# tarnwick_fuzz_target(<name> DEPENDS <folder>... SOURCES <file>... [SEEDS <folder of files>])
#
# A source defines LLVMFuzzerTestOneInput. The preset `fuzz` links libFuzzer and ctest runs it for
# TARNWICK_FUZZ_SECONDS from the seeds (label `fuzz`); every other build links replay_main.cpp, and
# ctest feeds the seeds, among them the inputs that once broke something, one by one (label `unit`).
function(tarnwick_fuzz_target name)
    cmake_parse_arguments(ARG "" "SEEDS" "DEPENDS;SOURCES" ${ARGN})
    list(TRANSFORM ARG_DEPENDS PREPEND tarnwick_)
    set(target tarnwick_fuzz_${name})
    add_executable(${target} ${ARG_SOURCES})
    target_link_libraries(${target} PRIVATE ${ARG_DEPENDS})
    if(ARG_SEEDS)
        cmake_path(ABSOLUTE_PATH ARG_SEEDS BASE_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR})
    endif()
    if(TARNWICK_FUZZ)
        target_link_options(${target} PRIVATE -fsanitize=fuzzer)
        set(found ${CMAKE_CURRENT_BINARY_DIR}/found_${name})
        file(MAKE_DIRECTORY ${found})
        add_test(NAME fuzz_${name} COMMAND ${target} -max_total_time=${TARNWICK_FUZZ_SECONDS}
            -timeout=10 -rss_limit_mb=2048 -print_final_stats=1
            -artifact_prefix=${found}/broken_ ${found} ${ARG_SEEDS})
        math(EXPR limit "${TARNWICK_FUZZ_SECONDS} + 120")
        set_tests_properties(fuzz_${name} PROPERTIES LABELS fuzz TIMEOUT ${limit})
    elseif(ARG_SEEDS)
        target_sources(${target} PRIVATE ${PROJECT_SOURCE_DIR}/tests/fuzz/replay_main.cpp)
        add_test(NAME fuzz_replay_${name} COMMAND ${target} ${ARG_SEEDS})
        set_tests_properties(fuzz_replay_${name} PROPERTIES LABELS unit TIMEOUT 120)
    else()
        target_sources(${target} PRIVATE ${PROJECT_SOURCE_DIR}/tests/fuzz/replay_main.cpp)
    endif()
endfunction()

# tarnwick_benchmark(<name> DEPENDS <folder>... SOURCES <file>...)
#
# The executable tarnwick_<name> on Google Benchmark. Figures count in the preset release only.
function(tarnwick_benchmark name)
    cmake_parse_arguments(ARG "" "" "DEPENDS;SOURCES" ${ARGN})
    list(TRANSFORM ARG_DEPENDS PREPEND tarnwick_)
    add_executable(tarnwick_${name} ${ARG_SOURCES})
    target_link_libraries(tarnwick_${name} PRIVATE ${ARG_DEPENDS} benchmark::benchmark_main)
endfunction()
