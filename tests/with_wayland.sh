#!/bin/bash
# with_wayland.sh <program> [argument...]
# Runs a program on a Wayland compositor of its own, whose screen is a window that fills an X screen without a window
# manager: "with_x11.sh --bare <seconds> with_wayland.sh <program>".
set -u

compositor= program=
folder=$(mktemp -d)
export XDG_RUNTIME_DIR=$folder

clean_up() {
    trap '' TERM INT HUP
    local pid
    for pid in $program $compositor; do
        kill "$pid" 2>/dev/null && wait "$pid" 2>/dev/null
    done
    rm -rf "$folder"
}
trap clean_up EXIT
trap 'exit 143' TERM INT HUP

fail() {
    echo "with_wayland.sh: $1" >&2
    cat "$folder/log" >&2
    exit 1
}

# The kiosk shell fills the screen with each window, so that places in a window are places on the screen.
setpriv --pdeathsig KILL weston --no-config --backend=x11-backend.so --use-pixman --width=1280 --height=1024 \
    --shell=kiosk-shell.so --idle-time=0 --socket=wayland >"$folder/log" 2>&1 &
compositor=$!
deadline=$((SECONDS + 30))
# Nobody but this script gives the window the keyboard.
until [[ -S $folder/wayland ]] && xdotool search --onlyvisible --class weston windowfocus 2>/dev/null; do
    kill -0 "$compositor" 2>/dev/null || fail "weston did not start"
    ((SECONDS < deadline)) || fail "weston shows no window"
    sleep 0.05
done

export QT_QPA_PLATFORM=wayland WAYLAND_DISPLAY=wayland
setpriv --pdeathsig TERM "$@" &
program=$!
wait "$program"
status=$?
program=
exit "$status"
