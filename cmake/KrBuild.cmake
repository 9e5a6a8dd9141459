# How every target of the project is compiled: language level, warnings, sanitizers.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
if(PROJECT_IS_TOP_LEVEL)
  set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
  if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
    set(CMAKE_BUILD_TYPE Release CACHE STRING "" FORCE)
  endif()
  find_program(KR_CCACHE ccache)
  if(KR_CCACHE)
    # Without the first, ccache passes by every source that uses a precompiled header; without the second it reads that
    # header, large as it is, each time.
    set(CMAKE_CXX_COMPILER_LAUNCHER env CCACHE_SLOPPINESS=pch_defines,time_macros CCACHE_INODECACHE=1
        ${KR_CCACHE})
  endif()
endif()

add_library(kr_flags INTERFACE)
target_compile_options(kr_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion
  -ffp-contract=off -fno-semantic-interposition)
if(KR_WERROR)
  target_compile_options(kr_flags INTERFACE -Werror)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # g++ 12 sees these inside std::string where they are not, as soon as it optimises; clang and the sanitizers look for
  # the real ones.
  target_compile_options(kr_flags INTERFACE -Wno-restrict -Wno-maybe-uninitialized -Wno-array-bounds
                                             -Wno-stringop-overflow -Wno-stringop-overread)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  # clang 14 warns of things g++ takes and that are harmless here.
  target_compile_options(kr_flags INTERFACE -Wno-sign-conversion -Wno-implicit-int-float-conversion)
endif()
if(KR_PCH AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # So that ccache can keep what is made with a precompiled header.
  target_compile_options(kr_flags INTERFACE -fpch-preprocess)
elseif(KR_PCH AND CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  target_compile_options(kr_flags INTERFACE "SHELL:-Xclang -fno-pch-timestamp")
endif()
# kr_precompile(TARGET HEADER...): a header of its own for the target, compiled once.
function(kr_precompile target)
  if(NOT KR_PCH)
    return()
  endif()
  target_precompile_headers(${target} PRIVATE ${ARGN})
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # Where ccache preprocesses the header itself, what was made of it before must not stand in for it.
    set_source_files_properties(${CMAKE_CURRENT_BINARY_DIR}/CMakeFiles/${target}.dir/cmake_pch.hxx.cxx
                                PROPERTIES COMPILE_OPTIONS -fno-pch-preprocess)
  endif()
endfunction()
if(KR_SANITIZE)
  target_compile_options(kr_flags INTERFACE -fsanitize=${KR_SANITIZE} -fno-sanitize-recover=all
    -fno-omit-frame-pointer)
  target_link_options(kr_flags INTERFACE -fsanitize=${KR_SANITIZE})
else()
  target_link_options(kr_flags INTERFACE -Wl,--no-undefined)
endif()
if(KR_BUILD_FUZZ)
  target_compile_options(kr_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()
if(KR_COVERAGE)
  target_compile_options(kr_flags INTERFACE --coverage -O0 -g)
  target_link_options(kr_flags INTERFACE --coverage)
endif()

# Shared objects find each other in the build tree and, installed, beside the program.
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)
set(CMAKE_INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR};$ORIGIN")
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)

# The install folder (data and side library), laid in the build tree as it is laid in an installed one, so that what
# runs from the build tree finds it by the same way: ../share/krobjects from the program.
set(KR_DATA_SUBDIR krobjects)
set(KR_INSTALL_FOLDER ${PROJECT_BINARY_DIR}/share/${KR_DATA_SUBDIR})
file(GLOB_RECURSE KR_DATA_FILES CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR}/data ${PROJECT_SOURCE_DIR}/data/*)
foreach(file IN LISTS KR_DATA_FILES)
  get_filename_component(folder ${KR_INSTALL_FOLDER}/${file} DIRECTORY)
  file(MAKE_DIRECTORY ${folder})
  file(CREATE_LINK ${PROJECT_SOURCE_DIR}/data/${file} ${KR_INSTALL_FOLDER}/${file} SYMBOLIC COPY_ON_ERROR)
endforeach()
