# How every target of the project is compiled: language level, warnings, sanitizers.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "" FORCE)
endif()

find_program(KR_CCACHE ccache)
if(KR_CCACHE AND PROJECT_IS_TOP_LEVEL)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${KR_CCACHE})
endif()

add_library(kr_flags INTERFACE)
target_compile_options(kr_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror
  -ffp-contract=off -fno-semantic-interposition)
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  # clang 14 warns of things g++ takes and that are harmless here.
  target_compile_options(kr_flags INTERFACE -Wno-sign-conversion -Wno-implicit-int-float-conversion)
endif()
if(KR_SANITIZE)
  target_compile_options(kr_flags INTERFACE -fsanitize=${KR_SANITIZE} -fno-sanitize-recover=all
    -fno-omit-frame-pointer -g)
  target_link_options(kr_flags INTERFACE -fsanitize=${KR_SANITIZE})
else()
  target_link_options(kr_flags INTERFACE -Wl,--no-undefined)
endif()
if(KR_COVERAGE)
  target_compile_options(kr_flags INTERFACE --coverage -O0 -g)
  target_link_options(kr_flags INTERFACE --coverage)
endif()

# Shared objects find each other in the build tree and, installed, beside the program.
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)
set(CMAKE_INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR};$ORIGIN")
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)
