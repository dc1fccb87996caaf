# Compiler settings shared by every target of the tree.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "" FORCE)
endif()

# The program runs from the build tree: executables and libraries in bin, plug-ins in bin/plugins.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)
set(CMAKE_INSTALL_RPATH "$ORIGIN;$ORIGIN/../..")

set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTOUIC ON)
set(CMAKE_AUTORCC ON)
set(CMAKE_AUTOUIC_SEARCH_PATHS ${PROJECT_SOURCE_DIR}/forms)

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
  set(CMAKE_CXX_COMPILER_LAUNCHER
      ${CMAKE_COMMAND} -E env
      CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
      CCACHE_NOHASHDIR=1 ${CCACHE_PROGRAM})
endif()

# One code model for libraries and executables, so that all can share a precompiled header.
add_compile_options(-fPIC)
# All processors come to the same results: a product added to a sum is rounded twice. Nobody reads
# errno or floating-point flags, so that roots and choices need no branches.
if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
  add_compile_options(-ffp-contract=off -fno-math-errno -fno-trapping-math)
endif()
add_compile_definitions(
  QT_DEPRECATED_WARNINGS
  QT_DEPRECATED_WARNINGS_SINCE=0x050900
  QT_DISABLE_DEPRECATED_BEFORE=0x050900)

if(TARNPICK_SANITIZE)
  add_compile_options(-fsanitize=${TARNPICK_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${TARNPICK_SANITIZE})
  add_compile_options($<$<CONFIG:Debug>:-O1>)
endif()

if(TARNPICK_FUZZ)
  add_compile_definitions(FUZZING_BUILD_MODE_UNSAFE_FOR_PRODUCTION)
endif()

add_library(ov_warnings INTERFACE)
target_compile_options(ov_warnings INTERFACE -Wall -Wextra -Wshadow -Wconversion -Werror)
