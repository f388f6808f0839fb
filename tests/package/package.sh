#!/bin/bash
# package.sh install|cmake|pkgconfig|mistakes|subproject|examples|symbols|readme
# One step of testing the package, in the current directory. From the environment:
# SOURCE, BUILD (folders of the project), QT, SUFFIX, VERSION (what was built), LIBRARY and PROPERTIES (the files of the
# two libraries; Qt 4 has the first alone), CXX.
set -euo pipefail

here=$SOURCE/tests/package
stage=$PWD/stage
export QT_QPA_PLATFORM=offscreen CMAKE_PREFIX_PATH=$stage${CMAKE_PREFIX_PATH:+:$CMAKE_PREFIX_PATH} CXX

# configure_and_build <source folder> <build folder> [argument...]
configure_and_build() {
    cmake -G Ninja -S "$1" -B "$2" --log-level=WARNING "${@:3}" && cmake --build "$2" --parallel 2
}

install() {
    rm -rf "$stage"
    cmake --install "$BUILD" --prefix "$stage" >/dev/null
    diff <(cd "$SOURCE/shared/src/base" && grep -lE 'INSPECTOR_EXPORT|PROPERTIES_EXPORT' -- */*.h | sed 's|.*/||' | sort) \
        <(cd "$stage/include/inspector$SUFFIX" && ls -- *.h | sort)
}

# The programs run until they are stopped.
check_that_it_runs() {
    local status=0
    timeout 1 "$1" || status=$?
    ((status == 124)) || { echo "$1 ended with $status" >&2; return 1; }
}

# check_that_they_run <folder>: a program of each library.
check_that_they_run() {
    check_that_it_runs "$1/consumer"
    [[ -z $PROPERTIES ]] || check_that_it_runs "$1/page"
}

with_cmake() {
    configure_and_build "$here/consumer" consumer \
        -DINSPECTOR_PACKAGE="Inspector$SUFFIX" -DINSPECTOR_VERSION="$VERSION"
    check_that_they_run consumer
    [[ ! -e $stage/bin/inspect ]] || "$stage/bin/inspect" --exercise 10 consumer/page
}

with_pkgconfig() {
    local folder
    folder=$(dirname "$(find "$stage" -name "inspector$SUFFIX.pc")")
    export PKG_CONFIG_PATH=$folder${PKG_CONFIG_PATH:+:$PKG_CONFIG_PATH}
    mkdir -p pkgconfig
    # Words are meant to be split: they are arguments.
    # shellcheck disable=SC2046
    "$CXX" "$SOURCE/examples/minimal/main.cpp" -o pkgconfig/consumer $(pkg-config --cflags --libs "inspector$SUFFIX")
    # shellcheck disable=SC2046
    [[ -z $PROPERTIES ]] || "$CXX" -std=c++17 "$here/consumer/page.cpp" -o pkgconfig/page \
        $(pkg-config --cflags --libs "inspectorproperties$SUFFIX")
    LD_LIBRARY_PATH=$(dirname "$folder")${LD_LIBRARY_PATH:+:$LD_LIBRARY_PATH} check_that_they_run pkgconfig
}

# A person understands what the compiler says of mistakes.
mistakes() {
    local errors message
    PKG_CONFIG_PATH=$(dirname "$(find "$stage" -name "inspector$SUFFIX.pc")")${PKG_CONFIG_PATH:+:$PKG_CONFIG_PATH}
    export PKG_CONFIG_PATH
    # shellcheck disable=SC2046
    errors=$(! "$CXX" -std=c++17 -fsyntax-only "$here/consumer/mistakes.cpp" \
        $(pkg-config --cflags "inspectorproperties$SUFFIX") 2>&1)
    for message in "A property of this type has no editor." "This value ends with the statement." \
        "The first function tells the value" "The second function takes the value"; do
        grep -q "error: static.assert.*$message" <<<"$errors" || { echo "not told: $message"; return 1; }
    done
}

# As a part of another project, and as a static library.
as_subproject() {
    configure_and_build "$here/consumer" subproject \
        -DINSPECTOR_SOURCE="$SOURCE" -DINSPECTOR_QT="$QT" -DBUILD_SHARED_LIBS=OFF
    check_that_they_run subproject
}

examples() {
    local list example
    for list in "$SOURCE"/examples/*/CMakeLists.txt; do
        example=$(basename "$(dirname "$list")")
        configure_and_build "$(dirname "$list")" "examples/$example"
        check_that_it_runs "$(find "examples/$example" -maxdepth 1 -type f -perm -u+x)"
    done
}

# list_symbols <library>: the classes and namespaces that have a strong symbol. Weak ones come from templates and are the
# compiler's affair.
list_symbols() {
    nm -DC --defined-only "$1" | sed -nE '/^[0-9a-f]+ [A-TX-Z] [^_]/{
        s/^[0-9a-f]+ . //
        s/^(non-virtual|virtual) thunk to //
        s/^(vtable|VTT|typeinfo|typeinfo name) for (.*)/\2::/
        s/\(.*//
        s/::[^:]*$//
        p
    }' | sort -u
}

symbols() {
    diff "$here/symbols.txt" <(list_symbols "$LIBRARY")
    [[ -z $PROPERTIES ]] || diff "$here/symbols-properties.txt" <(list_symbols "$PROPERTIES")
}

# The program in README is an example, word for word.
readme() {
    diff "$SOURCE/examples/properties/main.cpp" <(sed -n '/^```cpp$/,/^```$/{/^```/d;p}' "$SOURCE/README.md")
    (($(wc -l <"$SOURCE/README.md") < 120))
    # All builds ask for the same CMake, and README says which.
    diff <(sed -nE 's/.*CMake ([0-9.]+) or newer.*/\1/p' "$SOURCE/README.md") \
        <(cd "$SOURCE" && sed -nE -e 's/.*cmake_minimum_required\(VERSION ([^)]*)\).*/\1/p' \
            -e 's/.*"major": ([0-9]+), "minor": ([0-9]+).*/\1.\2/p' \
            CMakeLists.txt CMakePresets.json examples/*/CMakeLists.txt tests/package/*/CMakeLists.txt | sort -u)
}

case $1 in
install | examples | mistakes | symbols | readme) "$1" ;;
cmake | pkgconfig) "with_$1" ;;
subproject) as_subproject ;;
*) exit 2 ;;
esac
