#!/bin/bash
# packages.sh [folder]: makes the Debian packages for Qt 6 and for Qt 5, and puts them into build/packages or the folder.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
target=$(realpath -m "${1:-build/packages}")

scripts/setup.sh g++ cmake ninja-build dpkg-dev lintian qt6-base-dev qtbase5-dev
CXXFLAGS="$(dpkg-buildflags --get CXXFLAGS) $(dpkg-buildflags --get CPPFLAGS)"
LDFLAGS=$(dpkg-buildflags --get LDFLAGS)
export CXXFLAGS LDFLAGS
umask 022

# CPack has ldconfig called by scripts of the package, which its trigger makes needless.
drop_scripts() {
    local unpacked
    unpacked=$(mktemp -d)
    dpkg-deb --raw-extract "$1" "$unpacked"
    rm -f "$unpacked"/DEBIAN/post{inst,rm}
    dpkg-deb --root-owner-group --build "$unpacked" "$1" >/dev/null
    rm -rf "$unpacked"
}

rm -f "$target"/*.deb
for version in 6 5; do
    build=build/package-qt$version
    cmake -S . -B "$build" -G Ninja --log-level=WARNING \
        -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX=/usr -DINSPECTOR_QT=$version -DINSPECTOR_SUFFIX=-qt$version \
        -DINSPECTOR_BUILD_TESTS=OFF -DINSPECTOR_BUILD_EXAMPLES=OFF
    cmake --build "$build"
done
# pack <Qt> <component;...> [<argument of cpack>...]
pack() {
    (cd "build/package-qt$1" && cpack -B "$target" -D "CPACK_COMPONENTS_ALL=$2" "${@:3}" >/dev/null)
}
pack 6 "runtime;development"
pack 5 "runtime;development"
# The tools for both in one package.
pack 6 tools -D "CPACK_INSTALL_CMAKE_PROJECTS=../package-qt5;Inspector;ALL;/;.;Inspector;ALL;/"
rm -rf "$target/_CPack_Packages"
for package in "$target"/*.deb; do
    drop_scripts "$package"
done
lintian --fail-on error,warning "$target"/*.deb
ls "$target"/*.deb
