#!/bin/bash
# pictures.sh [folder [program]]: makes the pictures of docs/pictures, or of the folder, by the demo for Qt 6.
# They show it with light and dark palette, at scale factors 1, 1.5 ("@1.5x") and 2.
set -euo pipefail
project=$(realpath "$(dirname "${BASH_SOURCE[0]}")/..")
target=$(realpath -m "${1:-$project/docs/pictures}")
program=${2:-$project/demo}

all=$(mktemp -d)
trap 'rm -rf "$all"' EXIT
mkdir -p "$target"
export QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8

# make <scale factor> <end of the names> <picture>... [-- option of the demo]
make() {
    local scale=$1 end=$2 names=() name
    shift 2
    while (($# > 0)) && [[ $1 != -- ]]; do
        names+=("$1")
        shift
    done
    QT_SCALE_FACTOR=$scale "$program" --pictures "$all" "${@:2}" >/dev/null
    for name in "${names[@]}"; do
        cp "$all/$name.png" "$target/$name$end.png"
    done
}

make 1 "" properties page list
make 1 -dark properties page -- --dark
make 1.5 @1.5x properties
make 2 @2x preview
make 2 -dark@2x preview -- --dark
