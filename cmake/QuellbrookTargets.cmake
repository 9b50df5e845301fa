set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release)
endif()
set(CMAKE_CXX_FLAGS_RELEASE "-O2")

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${CMAKE_COMMAND}" -E env CCACHE_SLOPPINESS=pch_defines,time_macros
    "CCACHE_BASEDIR=${CMAKE_SOURCE_DIR}" CCACHE_NOHASHDIR=1 "${CCACHE_PROGRAM}")
endif()

# Given here and not as a property, which would tell programs from libraries and so keep them from sharing a
# precompiled header.
add_compile_options(-fPIC)
add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual)
if(QUELLBROOK_WERROR)
  add_compile_options(-Werror)
endif()
if(QUELLBROOK_SANITIZE)
  # With the sanitizers this compiler takes the libraries' moved-from functions for uninitialized.
  add_compile_options(-O1 -g1 -fno-omit-frame-pointer -fsanitize=address,undefined -fno-sanitize-recover=undefined
    -Wno-maybe-uninitialized)
  add_link_options(-fsanitize=address,undefined)
endif()
if(QUELLBROOK_FUZZ)
  add_compile_options(-O1 -g1 -fsanitize=fuzzer-no-link,address,undefined)
  add_link_options(-fsanitize=address,undefined)
endif()

# Tests are compiled more often than they run.
set(QUELLBROOK_TEST_OPTIONS -O0)

# Lets a target use one of the precompiled headers, where they are switched on.
function(quellbrook_precompile target headers)
  if(QUELLBROOK_PRECOMPILE)
    target_precompile_headers(${target} REUSE_FROM quellbrook_precompiled_${headers})
  endif()
endfunction()

# One static library for one folder: every .cpp in it, and in the sub-folders named behind SUBFOLDERS. VIEWS says that
# it draws widgets.
# LINK names what its public headers need. All includes are written from the project's root.
function(quellbrook_library name)
  cmake_parse_arguments(ARG "VIEWS" "" "SUBFOLDERS;LINK" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS "*.cpp" "*.h")
  foreach(folder IN LISTS ARG_SUBFOLDERS)
    file(GLOB more CONFIGURE_DEPENDS "${folder}/*.cpp" "${folder}/*.h")
    list(APPEND sources ${more})
  endforeach()
  if(NOT sources)
    file(WRITE "${CMAKE_CURRENT_BINARY_DIR}/empty.cpp" "")
    set(sources "${CMAKE_CURRENT_BINARY_DIR}/empty.cpp")
  endif()
  add_library(${name} STATIC ${sources})
  set_target_properties(${name} PROPERTIES LINKER_LANGUAGE CXX)
  target_include_directories(${name} PUBLIC "${PROJECT_SOURCE_DIR}")
  target_link_libraries(${name} PUBLIC ${ARG_LINK})
  set_target_properties(${name} PROPERTIES AUTOMOC ${ARG_VIEWS})
  if(ARG_VIEWS)
    quellbrook_precompile(${name} views)
  else()
    quellbrook_precompile(${name} model)
  endif()
endfunction()
