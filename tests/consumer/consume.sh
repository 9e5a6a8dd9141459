#!/bin/bash
# One step of a stranger's use: consume.sh BUILD SOURCE COMPILER STEP LIBDIR
set -euo pipefail
build=$1 source=$2 compiler=$3 step=$4 libdir=$5
place=$build/consumer
prefix=$place/moved

fail() { echo "$*" >&2; exit 1; }
quietly() { "$@" > "$place/$step.log" 2>&1 || { cat "$place/$step.log"; fail "failed: $*"; }; }

case $step in
  install)
    rm -rf "$place"
    mkdir -p "$place"
    quietly cmake --install "$build" --prefix "$place/first"
    # Nothing in an installed tree may know where it was installed.
    mv "$place/first" "$prefix"
    ! grep -rlI -e "$build" -e "$place" "$prefix" || fail "these name the folder they were built in"
    ls "$prefix/share/krobjects/Support/krobjfn_ryB16._kr" "$prefix/$libdir/libKrObjectsB16.so" > /dev/null
    ;;
  find_package)
    quietly cmake -S "$source/package" -B "$place/package" -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_PREFIX_PATH="$prefix"
    quietly cmake --build "$place/package"
    "$place/package/client"
    ;;
  pkg_config)
    export PKG_CONFIG_PATH=$prefix/$libdir/pkgconfig
    read -r -a flags <<< "$(pkg-config --cflags --libs krobjects)"
    quietly "$compiler" -std=c++20 "$source/client.cpp" "${flags[@]}" -o "$place/client_by_pkg_config"
    LD_LIBRARY_PATH=$prefix/$libdir "$place/client_by_pkg_config"
    [ -d "$(pkg-config --variable=install_folder krobjects)/Support" ] || fail "no install folder in krobjects.pc"
    ;;
  headers)
    # All of them stand without the project's sources and without any third party's headers.
    (cd "$prefix/include/krobjects" && find . -name '*.h' | sort | sed 's|^\./\(.*\)$|#include "\1"|') > "$place/headers.cpp"
    [ -s "$place/headers.cpp" ] || fail "no headers were installed"
    quietly "$compiler" -std=c++20 -fsyntax-only -Wall -Wextra -Werror -I"$prefix/include/krobjects" "$place/headers.cpp"
    ;;
  add_subdirectory)
    mkdir -p "$place"
    rm -rf "$place/subdirectory"
    quietly cmake -S "$source/subdirectory" -B "$place/subdirectory" -DCMAKE_CXX_COMPILER="$compiler"
    targets=$(cmake --build "$place/subdirectory" --target help)
    grep -q '\bKrObjects\b' <<< "$targets" || fail "KrObjects is no target"
    ! grep -E '\b(kr_test_pch|test_[a-z_]+|kr|bench_[a-z]+): ' <<< "$targets" || fail "it brought targets nobody asked for"
    ! grep -i -E 'warning|deprecat' "$place/$step.log" || fail "it isn't quiet"
    ! grep -q . "$place/subdirectory/krobjects/cmake_install.cmake" 2> /dev/null ||
      ! grep -q 'file(INSTALL' "$place/subdirectory/krobjects/cmake_install.cmake" || fail "it brought install rules"
    ;;
  *) fail "no such step: $step" ;;
esac
