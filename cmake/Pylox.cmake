# What every target of this project shares: warnings, Qt's strict macros, sanitizers, and the shape of a library.

add_library(pylox_options INTERFACE)
target_compile_definitions(
  pylox_options
  INTERFACE QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
            QT_USE_QSTRINGBUILDER)
target_compile_options(pylox_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion)

option(PYLOX_WERROR "Treat warnings as errors" OFF)
if(PYLOX_WERROR)
  target_compile_options(pylox_options INTERFACE -Werror)
endif()

set(PYLOX_SANITIZE "" CACHE STRING "Sanitizers to build with, for example address,undefined")
if(PYLOX_SANITIZE)
  target_compile_options(pylox_options INTERFACE -fsanitize=${PYLOX_SANITIZE} -fno-sanitize-recover=undefined
                                                 -fno-omit-frame-pointer)
  target_link_options(pylox_options INTERFACE -fsanitize=${PYLOX_SANITIZE})
endif()

option(PYLOX_TIDY "Run clang-tidy on every file that is compiled" OFF)
if(PYLOX_TIDY)
  find_program(PYLOX_CLANG_TIDY clang-tidy REQUIRED)
endif()

# One heavy link at a time: the machines this is built on are small.
set_property(GLOBAL PROPERTY JOB_POOLS compile=2 link=1)
set(CMAKE_JOB_POOL_COMPILE compile)
set(CMAKE_JOB_POOL_LINK link)

function(pylox_configure target)
  target_link_libraries(${target} PRIVATE pylox_options)
  if(PYLOX_TIDY)
    set_target_properties(${target} PROPERTIES CXX_CLANG_TIDY "${PYLOX_CLANG_TIDY};--quiet")
  endif()
endfunction()

# pylox_library(NAME SOURCES … LINKS …): one folder of the house as a static library.
# Headers are included as "folder/file.h", so that every arrow between folders can be read in the source.
function(pylox_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_library(pylox_${name} STATIC ${ARG_SOURCES})
  target_include_directories(pylox_${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR}/..)
  target_link_libraries(pylox_${name} PUBLIC ${ARG_LINKS})
  set_target_properties(pylox_${name} PROPERTIES AUTOMOC ON)
  pylox_configure(pylox_${name})
endfunction()
