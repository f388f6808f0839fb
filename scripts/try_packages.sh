#!/bin/bash
# try_packages.sh <folder with the packages> [folder for a new Debian system]
# Installs the packages on a Debian system with nothing else on it, then builds and runs a program of each library and
# every packaged example there. To be run as root; needs debootstrap. The system stays for a look at it if it has a folder
# of its own.
set -euo pipefail
project=$(realpath "$(dirname "${BASH_SOURCE[0]}")/..")
packages=$(realpath "$1")
root=${2:-}
keep=$root
if [[ ! $root ]]; then
    root=$(mktemp -d)
fi
leave() {
    ! mountpoint -q "$root/proc" || umount "$root/proc"
    [[ $keep ]] || rm -rf --one-file-system "$root"
}
trap leave EXIT

inside() {
    chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive \
        XDG_RUNTIME_DIR=/run QT_QPA_PLATFORM=offscreen "$@"
}

[[ -e $root/etc/debian_version ]] || debootstrap --variant=minbase bookworm "$root"
mount -t proc proc "$root/proc"
cp /etc/resolv.conf "$root/etc/"
mkdir -p "$root/try"
cp "$packages"/*.deb "$root/try/"
mkdir -p "$root/try/tests/package"
cp -r "$project/tests/package/consumer" "$root/try/tests/package/"

inside apt-get -q update
# What the packages depend on is missing at first: dpkg says so, and apt brings just that.
inside sh -c 'dpkg -i /try/*.deb || apt-get -q -y --no-install-recommends --fix-broken install'
inside sh -c 'dpkg -i /try/*.deb && dpkg -l "libinspector*"'
inside apt-get -q -y --no-install-recommends install g++ cmake ninja-build pkg-config

# The programs run until they are stopped.
for version in 6 5; do
    inside bash -euc '
        runs() {
            local status=0
            timeout 2 "$1" || status=$?
            ((status == 124))
        }
        cd /try
        name=inspector-qt$1
        cp -r "/usr/share/doc/lib$name-dev/examples" .
        consumer=tests/package/consumer
        mkdir -p "pkgconfig-$name"
        g++ examples/minimal/main.cpp -o "pkgconfig-$name/consumer" $(pkg-config --cflags --libs $name)
        g++ $consumer/page.cpp -o "pkgconfig-$name/page" $(pkg-config --cflags --libs inspectorproperties-qt$1)
        runs "pkgconfig-$name/consumer"
        runs "pkgconfig-$name/page"
        echo "Built with pkg-config and run: both libraries, $name"
        cmake -G Ninja -S $consumer -B "build-$name" -DINSPECTOR_PACKAGE=Inspector-qt$1 -DINSPECTOR_VERSION=0.1
        cmake --build "build-$name"
        runs "build-$name/consumer"
        runs "build-$name/page"
        inspect --exercise 10 "build-$name/page"
        echo "Built with CMake, run and inspected: both libraries, $name"
        for list in examples/*/CMakeLists.txt; do
            example=$(basename $(dirname $list))
            cmake -G Ninja -S examples/$example -B build-$name/$example -DInspector_DIR=$(
                dirname $(find /usr/lib -name Inspector-qt$1Config.cmake))
            cmake --build build-$name/$example
            program=$(find build-$name/$example -maxdepth 1 -type f -perm -u+x)
            ldd $program | grep -q lib$name
            runs $program
            echo "Built and run: $example with $name"
        done' - "$version"
done
