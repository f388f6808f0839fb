#!/bin/sh
# Counts instructions under callgrind: one line per case, one column per subject. Counts are what to compare between
# commits; they do not depend on what else the machine does.
#
# usage: instructions.sh PROGRAM [-n ROWS] [-s "SUBJECT..."] [CASE...]
set -eu

program=$1
shift
rows=1000
subjects="inspector form"
while getopts n:s: option; do
    case $option in
    n) rows=$OPTARG ;;
    s) subjects=$OPTARG ;;
    *) exit 2 ;;
    esac
done
shift $((OPTIND - 1))
[ $# -gt 0 ] || set -- build resize scroll "update all" "update one" wheel "mouse move" switch destroy

output=$(mktemp)
trap 'rm -f "$output"' EXIT
count() {
    valgrind -q --tool=callgrind --callgrind-out-file="$output" --toggle-collect=MeasuredStep \
        "$program" --once --sizes "$rows" --subject "$1" --case "$2" >/dev/null 2>&1 || return 0
    sed -n 's/^totals: //p' "$output"
}

printf '| %s rows |' "$rows"
printf ' %s |' $subjects
printf '\n|---|'
for subject in $subjects; do printf -- '---:|'; done
printf '\n'
for step in "$@"; do
    printf '| %s |' "$step"
    for subject in $subjects; do printf ' %s |' "$(count "$subject" "$step")"; done
    printf '\n'
done
