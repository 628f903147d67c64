# Every compiler and linker flag of the project. Nothing outside this folder sets one.

include(CheckCXXCompilerFlag)
include(CheckIPOSupported)

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
# The generated makefiles never scan for C++20 modules: the project has none.
set(CMAKE_CXX_SCAN_FOR_MODULES OFF)

if(NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE Release CACHE STRING "Debug or Release" FORCE)
endif()

# -O1 keeps the search tests of a debug build within seconds; a debugger still shows most values.
set(CMAKE_CXX_FLAGS_DEBUG "-O1 -g")
set(CMAKE_CXX_FLAGS_RELEASE "-O3 -DNDEBUG")
add_compile_definitions($<$<CONFIG:Debug>:_GLIBCXX_ASSERTIONS>)

add_compile_options(
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual -Wformat=2
    -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    # g++ 12 sees overlapping copies in "x" + std::to_string(n), and overflows in short string copies
    # after linking, where there are none (GCC bugs 105651 and 105329).
    add_compile_options(-Wno-restrict)
    add_link_options(-Wno-restrict -Wno-stringop-overflow)
endif()
if(CMAKE_CXX_COMPILER_ID MATCHES Clang)
    # clang counts sign changes into -Wconversion and g++ does not: both shall accept the same code.
    add_compile_options(-Wno-sign-conversion -Wthread-safety)
endif()

if(TARNWICK_NATIVE)
    add_compile_options(-march=native)
else()
    # SSE4.2 and popcnt: every x86-64 processor since 2009. Other processors get their own default.
    check_cxx_compiler_flag(-march=x86-64-v2 TARNWICK_HAS_X86_64_V2)
    if(TARNWICK_HAS_X86_64_V2)
        add_compile_options(-march=x86-64-v2)
    endif()
endif()

if(TARNWICK_STATIC_RUNTIME)
    # Loading libstdc++ takes longer than solving a two-mover.
    add_link_options(-static-libstdc++ -static-libgcc)
endif()

if(TARNWICK_HARDENING)
    # What Debian asks of every package. The search takes about 8% longer (bench, best of six runs each),
    # so the release preset goes without.
    add_compile_options(-fstack-protector-strong -fcf-protection)
    add_compile_definitions($<$<CONFIG:Release>:_FORTIFY_SOURCE=2>)  # needs optimised code
    add_link_options(-Wl,-z,relro,-z,now)
endif()

if(TARNWICK_SANITIZE)
    add_compile_options(-fsanitize=${TARNWICK_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${TARNWICK_SANITIZE})
endif()

if(TARNWICK_FUZZ)
    if(NOT CMAKE_CXX_COMPILER_ID MATCHES Clang)
        message(FATAL_ERROR "TARNWICK_FUZZ needs clang: use the preset fuzz")
    endif()
    # Coverage counters everywhere; libFuzzer's own main is linked into the fuzz targets only.
    add_compile_options(-fsanitize=fuzzer-no-link)
    add_link_options(-fsanitize=fuzzer-no-link)
endif()

if(TARNWICK_LTO)
    check_ipo_supported(LANGUAGES CXX)
    set(CMAKE_INTERPROCEDURAL_OPTIMIZATION ON)
endif()
