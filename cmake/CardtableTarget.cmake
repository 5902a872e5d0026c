# SPDX-License-Identifier: MIT
# What every target of the project is built with.

# cardtable_target(NAME): C++20, warnings, sanitizers, and the include root that all folders share.
function(cardtable_target name)
  target_compile_features(${name} PUBLIC cxx_std_20)
  set_target_properties(${name} PROPERTIES CXX_EXTENSIONS OFF CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
  target_include_directories(${name} PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>)
  if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
    target_compile_options(${name} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
      # g++ 12 sees overlaps in std::string's own additions that are not there.
      target_compile_options(${name} PRIVATE -Wno-restrict)
    endif()
    # The same values everywhere: no fused multiply-add that one machine has and another lacks.
    target_compile_options(${name} PRIVATE -ffp-contract=off)
    if(CARDTABLE_WARNINGS_AS_ERRORS)
      target_compile_options(${name} PRIVATE -Werror)
    endif()
    if(CARDTABLE_BUILD_FUZZERS)
      # The fuzzers look behind the exported classes, and are led by which code a call reaches.
      set_target_properties(${name} PROPERTIES CXX_VISIBILITY_PRESET default)
      target_compile_options(${name} PRIVATE -fsanitize=fuzzer-no-link)
    endif()
    if(CARDTABLE_SANITIZE)
      target_compile_options(${name} PRIVATE -fsanitize=address,undefined -fno-sanitize-recover=all
                                             -fno-omit-frame-pointer)
      target_link_options(${name} PRIVATE -fsanitize=address,undefined)
    endif()
  endif()
endfunction()

# cardtable_test(NAME SOURCES... LIBRARIES ...): one GoogleTest program, each of its tests a test of ctest. Under an
# emulator, which is slow to start, the whole program is one.
function(cardtable_test name)
  cmake_parse_arguments(arg "" "" "SOURCES;LIBRARIES" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  cardtable_target(${name})
  target_link_libraries(${name} PRIVATE ${arg_LIBRARIES} GTest::gtest_main)
  if(CMAKE_CROSSCOMPILING)
    add_test(NAME ${name} COMMAND ${name})
  else()
    gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST)
  endif()
endfunction()

# cardtable_allocation_test(...): the same for a test that counts allocations by an operator new of its own, which on
# Windows a DLL does not see.
function(cardtable_allocation_test)
  if(NOT WIN32)
    cardtable_test(${ARGV})
  endif()
endfunction()
