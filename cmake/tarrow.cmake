# The words in which the folders describe themselves: tarrow_engine, tarrow_window, tarrow_engine_tests ...

option(TARROW_TESTS "Build the tests" ON)
option(TARROW_BENCH "Build the benchmarks" OFF)
option(TARROW_FUZZ "Build the fuzz targets, and the engines so that these see where they get (needs clang)" OFF)
# Quicker to build from nothing, but an #include that is missing goes unnoticed: not in every preset.
option(TARROW_PRECOMPILE "Read the common headers once" OFF)
option(TARROW_SANITIZE "Build with AddressSanitizer and UndefinedBehaviorSanitizer" OFF)

if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "" FORCE)
endif()

find_program(CCACHE ccache)
if(CCACHE)
  # Without these it caches nothing that uses a precompiled header.
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
    CCACHE_SLOPPINESS=pch_defines,time_macros ${CCACHE})
  add_compile_options($<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>
    "$<$<CXX_COMPILER_ID:Clang>:SHELL:-Xclang -fno-pch-timestamp>")
endif()

add_library(tarrow_flags INTERFACE)
target_compile_options(tarrow_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # GCC 12 sees overlaps in "literal" + std::string that are not there.
  target_compile_options(tarrow_flags INTERFACE -Wno-restrict)
endif()
if(WIN32)
  target_compile_definitions(tarrow_flags INTERFACE
    UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX STRICT
    WINVER=0x0601 _WIN32_WINNT=0x0601 _WIN32_IE=0x0700)
  # Message-map thunks and GetProcAddress convert between function types on purpose.
  target_compile_options(tarrow_flags INTERFACE -Wno-cast-function-type)
  target_link_options(tarrow_flags INTERFACE -static -s -Wl,--no-insert-timestamp -Wl,--dynamicbase -Wl,--nxcompat)
  if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    target_compile_options(tarrow_flags INTERFACE -msse2 -mfpmath=sse)
    target_link_options(tarrow_flags INTERFACE -Wl,--large-address-aware)
  else()
    target_link_options(tarrow_flags INTERFACE -Wl,--high-entropy-va)
  endif()
endif()
if(TARROW_SANITIZE)
  target_compile_options(tarrow_flags INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer -g1)
  target_link_options(tarrow_flags INTERFACE -fsanitize=address,undefined)
  target_compile_definitions(tarrow_flags INTERFACE TARROW_CHECKED=1 _GLIBCXX_ASSERTIONS)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  # Clang warns of asking an array for its address before it is filled; GCC, which builds what ships, does not.
  target_compile_options(tarrow_flags INTERFACE -Wno-uninitialized)
endif()

# Adds portable sources of this folder to tarrow_core.
function(tarrow_engine)
  list(TRANSFORM ARGN PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
  target_sources(tarrow_core PRIVATE ${ARGN})
endfunction()

# Adds Windows sources of this folder to tarrow_windows; elsewhere they are not built.
function(tarrow_window)
  if(WIN32)
    list(TRANSFORM ARGN PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
    target_sources(tarrow_windows PRIVATE ${ARGN})
  endif()
endfunction()

# Tests of engines: run natively, under sanitizers, and under Wine in both widths.
function(tarrow_engine_tests)
  list(TRANSFORM ARGN PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
  target_sources(engine_tests PRIVATE ${ARGN})
endfunction()

# Tests against real windows and a real message pump: run under Wine in both widths.
function(tarrow_window_tests)
  if(WIN32)
    list(TRANSFORM ARGN PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
    target_sources(window_tests PRIVATE ${ARGN})
  endif()
endfunction()

# A libFuzzer target from one source.
function(tarrow_fuzzer name source)
  add_executable(${name} ${source})
  target_link_libraries(${name} PRIVATE tarrow_core)
  target_link_options(${name} PRIVATE -fsanitize=fuzzer)
endfunction()

# A benchmark: a program that takes --quick, asserts what it measures, and prints a table of ratios. `./bench`
# runs those of the native build, and those that only Windows has under Wine.
function(tarrow_benchmark name)
  add_executable(${name} ${ARGN})
  target_link_libraries(${name} PRIVATE tarrow_core)
endfunction()

function(tarrow_window_benchmark name)
  if(WIN32)
    add_executable(${name} ${ARGN})
    target_link_libraries(${name} PRIVATE tarrow_windows)
  endif()
endfunction()
