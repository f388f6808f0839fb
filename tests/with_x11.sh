#!/bin/bash
# with_x11.sh [--bare|--slow] <seconds> <program> [argument...]
# Runs a program for at most that long, on an X server and a window manager of its own; --bare: without the latter;
# --slow: with one that takes its time to answer.
set -u

speed=
if [[ $1 == --* ]]; then
    speed=$1
    shift
fi
limit=$1
shift
server= manager= program= brake=

clean_up() {
    trap '' TERM INT HUP
    local pid
    if [[ $brake ]]; then
        kill "$brake"
        wait "$brake"
        kill -CONT "$manager"
    fi 2>/dev/null
    for pid in $program $manager $server; do
        kill "$pid" 2>/dev/null && wait "$pid" 2>/dev/null
    done
}
trap clean_up EXIT
trap 'exit 143' TERM INT HUP

fail() {
    echo "with_x11.sh: $1" >&2
    exit 1
}

# Death signals end server and program even when this script is killed outright; openbox ends with the server.
exec {number}< <(exec setpriv --pdeathsig TERM Xvfb -displayfd 1 -screen 0 1280x1024x24 -nolisten tcp -noreset -r)
server=$!
read -r -t 30 display <&"$number" || fail "Xvfb did not start"
export DISPLAY=":$display"

start_manager() {
    # A home that does not exist keeps the user's own window manager settings out.
    env HOME=/nonexistent XDG_CONFIG_HOME=/nonexistent openbox --sm-disable >/dev/null 2>&1 &
    manager=$!
    local deadline=$((SECONDS + 30))
    # The list of its windows is there only after openbox has said what it supports, which Qt asks for once.
    until [[ $(xprop -root _NET_CLIENT_LIST 2>/dev/null) == *"window id"* ]]; do
        kill -0 "$manager" 2>/dev/null || fail "openbox did not start"
        ((SECONDS < deadline)) || fail "openbox does not manage windows"
        sleep 0.05
    done
}
if [[ $speed != --bare ]]; then
    start_manager
fi
if [[ $speed == --slow ]]; then
    # Most of the time it is stopped, and what it is asked for waits.
    (while kill -STOP "$manager" && sleep 0.06 && kill -CONT "$manager"; do sleep 0.01; done) 2>/dev/null &
    brake=$!
fi

# Widgets need no OpenGL, and its drivers are slow to load and leak.
export QT_QPA_PLATFORM=xcb QT_XCB_GL_INTEGRATION=none
setpriv --pdeathsig TERM timeout --kill-after=5 "$limit" "$@" &
program=$!
wait "$program"
status=$?
program=
((status != 124)) || fail "$1 ran longer than $limit seconds"
exit "$status"
