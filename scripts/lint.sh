#!/bin/bash
# lint.sh <build directory>: format and static analysis of the sources, in the root of the project.
set -uo pipefail
failed=0
library=shared/src/base/inspector
properties=shared/src/base/properties
tool=tools/inspect

mapfile -t sources < <(find shared tools examples tests benchmarks fuzz -name '*.h' -o -name '*.cpp' 2>/dev/null | sort)
echo "clang-format: ${#sources[@]} files"
clang-format --dry-run -Werror "${sources[@]}" || failed=1

mapfile -t units < <(find "$library" "$properties" "$tool" fuzz -name '*.cpp' | sort)
echo "clang-tidy: ${#units[@]} files"
printf '%s\0' "${units[@]}" | xargs -0 -n 1 -P 2 clang-tidy --quiet -p "$1" 2>/dev/null || failed=1

# check <C++ version> <argument>...
# It takes a guarded pointer that a call in between may have cleared for the same condition twice.
check() {
    cppcheck --quiet --error-exitcode=1 --inline-suppr --std="c++$1" --language=c++ --library=qt \
        --enable=warning,performance --suppress=missingInclude --suppress=identicalConditionAfterEarlyExit \
        -I "$library" "${@:2}" || failed=1
}
echo "cppcheck"
check 14 -I tests/core -I tests/qt "$library" examples fuzz
check 17 -I "$properties" "$properties" "$tool"

if ((failed == 0)); then
    echo "No complaint."
fi
exit "$failed"
