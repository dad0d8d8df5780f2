# What every target of the project has in common. The build tree is laid out as an installed prefix is, so that the
# program finds its module, templates and languages in the same way in both.

if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release)
endif()

set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")
set(CMAKE_CXX_FLAGS_RELWITHDEBINFO "-O1 -g1")
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

set(HIERFIT_MODULE_DIR "${CMAKE_INSTALL_LIBDIR}/hierfit")
set(HIERFIT_SHARE_DIR "${CMAKE_INSTALL_DATADIR}/hierfit")
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/${CMAKE_INSTALL_BINDIR}")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/${CMAKE_INSTALL_LIBDIR}")
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/archive")
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)

# Of a precompiled header the cache looks at what went into it, so that it serves other build trees, too.
find_program(CCACHE ccache)
if(CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${CMAKE_COMMAND}" -E env CCACHE_SLOPPINESS=pch_defines,time_macros "${CCACHE}")
endif()

# The same sources give the same bytes wherever they lie; a debugger is told where.
add_compile_options("$<$<NOT:$<CONFIG:Debug>>:-ffile-prefix-map=${PROJECT_SOURCE_DIR}=.>")

if(HIERFIT_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

if(HIERFIT_THREADS)
  add_compile_options(-fsanitize=thread -fno-omit-frame-pointer)
  add_link_options(-fsanitize=thread)
endif()

# Everything is compiled so that a fuzzer sees which ways a run takes; the fuzz targets bring the fuzzer itself.
if(HIERFIT_FUZZ)
  add_compile_options(-O2 -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all
    -fno-omit-frame-pointer)
  add_link_options(-fsanitize=fuzzer-no-link,address,undefined)
endif()

# Each process adds to the counts when it ends; scripts/coverage reads them.
if(HIERFIT_COVERAGE)
  add_compile_options(-O1 -fprofile-instr-generate -fcoverage-mapping)
  add_link_options(-fprofile-instr-generate)
endif()

# The common settings of a target of our own.
function(hierfit_target target)
  # GCC 12 takes inlined string concatenations for overlapping copies (its bug 105651).
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    target_compile_options(${target} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:-Wno-restrict>)
  endif()
  target_compile_options(${target} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror>)
  # Clang counts changes of sign among conversions, GCC does not.
  if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    target_compile_options(${target} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:-Wno-sign-conversion>)
  endif()
  set_target_properties(${target} PROPERTIES CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
endfunction()

# The standard headers that most sources include, read once for all of a target: a fifth of the whole build. Sources
# include what they need all the same. A tool that reads the compile commands of a GCC build wants a tree of its own, made
# with CMAKE_DISABLE_PRECOMPILE_HEADERS. Not for the procedure: GCC 12 finds faults in precompiled strings that are none.
function(hierfit_precompile target)
  target_precompile_headers(${target} PRIVATE <algorithm> <array> <charconv> <cmath> <deque> <list> <map> <memory> <optional>
    <string> <string_view> <unordered_map> <utility> <variant> <vector>)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(${target} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:-fpch-preprocess>)
  else()
    target_compile_options(${target} PRIVATE "$<$<COMPILE_LANGUAGE:CXX>:SHELL:-Xclang -fno-pch-timestamp>")
  endif()
endfunction()

# How test programs are compiled: the time to build them counts, not their speed. Headers precompiled for them serve these
# settings only.
function(hierfit_test_options target)
  hierfit_target(${target})
  target_compile_options(${target} PRIVATE -O0 -fPIE)
endfunction()

# A test program: hierfit_test(NAME SOURCES file... LIBRARIES target...)
function(hierfit_test name)
  cmake_parse_arguments(PARSE_ARGV 1 TEST "" "" "SOURCES;LIBRARIES")
  add_executable(${name} ${TEST_SOURCES})
  hierfit_test_options(${name})
  target_link_libraries(${name} PRIVATE ${TEST_LIBRARIES} hierfit_test_support GTest::gtest_main)
  target_precompile_headers(${name} REUSE_FROM hierfit_test_headers)
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/tests")
  add_test(NAME ${name} COMMAND ${name})
endfunction()
