#!/bin/bash
# launcher.sh <inspect> <subject>: programs started with the inspector end as they would without, and are told what is
# wrong with them. Each case is a name, the exit code expected, what must be said (a pattern, "" for nothing at all), and
# the command.
set -u
inspect=$1
subject=$2
failed=0
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

try() {
    local name=$1 expected=$2 said=$3 status output
    shift 3
    output=$("$@" 2>&1)
    status=$?
    output=$(sed '/^This plugin does not support/d' <<<"$output") # the offscreen platform's
    if ((status != expected)) || [[ ! $output =~ ^$said$ ]]; then
        printf '%s: exit code %d instead of %d, said "%s"\n' "$name" "$status" "$expected" "$output" >&2
        failed=1
    fi
}

printf '#!/bin/sh\n"%s" exit\n' "$subject" >"$folder/script"
chmod +x "$folder/script"
no_inspector() { # the environment of what an inspected program starts
    "$inspect" "$subject" child 2>/dev/null | grep -iE '^(INSPECT|QT_PLUGIN_PATH|QT_QPA_GENERIC_PLUGINS)'
}
old_environment() {
    QT_QPA_GENERIC_PLUGINS=other QT_PLUGIN_PATH=/other "$inspect" "$subject" child 2>/dev/null |
        grep -E '^(QT_PLUGIN_PATH|QT_QPA_GENERIC_PLUGINS)' | sort | tr '\n' ' '
}

try "own exit code" 7 "" "$inspect" "$subject" exit
try "through a script" 7 "" "$inspect" "$folder/script"
try "killed" 143 "" "$inspect" "$subject" kill
try "nothing for children" 1 "" no_inspector
try "environment of before" 0 "QT_PLUGIN_PATH=/other QT_QPA_GENERIC_PLUGINS=other " old_environment
try "no Qt" 1 ".*itself does not use Qt.*took the inspector\." "$inspect" false
try "no such program" 127 ".*no such program" "$inspect" "$folder/none"
try "no program" 125 "usage: .*" "$inspect"
try "exercise" 0 ".* objects selected, .* properties read, 30 edits made and undone, 0 dialogs closed" \
    "$inspect" --exercise 30 "$subject" nothing
exit "$failed"
