# Compiler options, warnings and the sanitizers, for our own targets only. Anything that links one of our libraries gets
# them too, unless it comes from outside this project.
add_library(quellbrook_options INTERFACE)
add_library(Quellbrook::options ALIAS quellbrook_options)
target_compile_features(quellbrook_options INTERFACE cxx_std_20)
target_include_directories(quellbrook_options INTERFACE "${PROJECT_SOURCE_DIR}")
# An option instead of the property POSITION_INDEPENDENT_CODE: the property gives programs and libraries different
# flags, and they could not share a precompiled header.
target_compile_options(quellbrook_options INTERFACE -fPIC -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor
  -Woverloaded-virtual $<$<BOOL:${QUELLBROOK_WERROR}>:-Werror>)
if(QUELLBROOK_SANITIZE)
  # GCC reports moved-from functions of the standard library as uninitialized when the sanitizers are on.
  target_compile_options(quellbrook_options INTERFACE -O1 -g1 -fno-omit-frame-pointer -fsanitize=address,undefined
    -fno-sanitize-recover=undefined -Wno-maybe-uninitialized)
  target_link_options(quellbrook_options INTERFACE -fsanitize=address,undefined)
endif()
if(QUELLBROOK_FUZZ)
  target_compile_options(quellbrook_options INTERFACE -O1 -g1 -fsanitize=fuzzer-no-link,address,undefined)
  target_link_options(quellbrook_options INTERFACE -fsanitize=address,undefined)
endif()

# Tests are compiled more often than they run.
add_library(quellbrook_test_options INTERFACE)
target_link_libraries(quellbrook_test_options INTERFACE quellbrook_options)
target_compile_options(quellbrook_test_options INTERFACE -O0)

if(PROJECT_IS_TOP_LEVEL)
  find_program(CCACHE_PROGRAM ccache)
  if(CCACHE_PROGRAM)
    set(CMAKE_CXX_COMPILER_LAUNCHER "${CMAKE_COMMAND}" -E env CCACHE_SLOPPINESS=pch_defines,time_macros
      "CCACHE_BASEDIR=${PROJECT_SOURCE_DIR}" CCACHE_NOHASHDIR=1 "${CCACHE_PROGRAM}")
  endif()
endif()

# quellbrook_precompile(TARGET HEADERS): uses one of the precompiled headers, if they are on.
function(quellbrook_precompile target headers)
  if(QUELLBROOK_PRECOMPILE)
    target_precompile_headers(${target} REUSE_FROM quellbrook_precompiled_${headers})
  endif()
endfunction()

# quellbrook_library([VIEWS] [PUBLIC target...] [PRIVATE target...])
# One static library for the current folder, with all its sources, but not a program's main.cpp. The target is named
# after the folder's path: ui/style gives quellbrook_ui_style and Quellbrook::ui_style. PUBLIC lists what the folder's
# headers include, PRIVATE what only its sources include. VIEWS is for folders that use Qt Widgets. Includes are written
# from the project's root.
function(quellbrook_library)
  cmake_parse_arguments(ARG "VIEWS" "" "PUBLIC;PRIVATE" ${ARGN})
  file(RELATIVE_PATH folder "${PROJECT_SOURCE_DIR}" "${CMAKE_CURRENT_SOURCE_DIR}")
  string(REPLACE "/" "_" name "${folder}")
  file(GLOB sources CONFIGURE_DEPENDS "[A-Z]*.cpp" "[A-Z]*.h")
  add_library(quellbrook_${name} STATIC ${sources})
  add_library(Quellbrook::${name} ALIAS quellbrook_${name})
  set_target_properties(quellbrook_${name} PROPERTIES LINKER_LANGUAGE CXX AUTOMOC ${ARG_VIEWS})
  target_link_libraries(quellbrook_${name} PUBLIC quellbrook_options ${ARG_PUBLIC} PRIVATE ${ARG_PRIVATE})
  target_compile_options(quellbrook_${name} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-Wconversion>)
  if(ARG_VIEWS)
    quellbrook_precompile(quellbrook_${name} views)
  else()
    quellbrook_precompile(quellbrook_${name} model)
  endif()
endfunction()
