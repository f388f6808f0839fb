#!/bin/bash
# compare.sh <folder> <folder>: fails unless both hold the same pictures. What is smaller than a cell of eight pixels,
# such as the edges of letters, averages out.
set -euo pipefail

diff <(cd "$1" && identify -format '%f %w %h\n' ./*) <(cd "$2" && identify -format '%f %w %h\n' ./*)
failed=0
for picture in "$1"/*; do
    cells=$(convert "$picture" "$2/${picture##*/}" -colorspace Gray -scale '12.5%' -compose Difference -composite \
        -threshold '6.25%' -format '%[fx:round(mean*w*h)]' info:)
    echo "$picture: $cells cells apart"
    [[ $cells == 0 ]] || failed=1
done
exit "$failed"
