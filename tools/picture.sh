#!/usr/bin/env bash
# Starts a program with a window under an X server of its own, presses keys and takes a picture.
#   picture.sh PROGRAM FILE.png [-g COLUMNSxROWS-of-pixels] [-- OPTION...] [KEY ...]
# A key is written as the menus do, "F10", "Ctrl-F3", "Alt-Shift-F2", "PgDn"; "text:abc" types.
# The working directory and HOME are those of the caller.
set -euo pipefail
program=$1 file=$2
shift 2
screen=1400x1000
options=()
if [ "${1-}" = -g ]; then
    screen=$2
    shift 2
fi
while [ $# -gt 0 ] && [[ $1 == -[lrx] ]]; do
    options+=("$1" "$2")
    shift 2
done

work=$(mktemp -d)
server="" window_program=""
finish() {
    [ -n "$window_program" ] && kill "$window_program" 2>/dev/null
    [ -n "$server" ] && kill "$server" 2>/dev/null
    wait 2>/dev/null
    rm -rf "$work"
}
trap finish EXIT

# The server picks a free display number and writes it once it can be used.
mkfifo "$work/number"
Xvfb -displayfd 3 -screen 0 "${screen}x24" -nolisten tcp 3>"$work/number" 2>"$work/server.log" &
server=$!
read -r -t 20 number <"$work/number" || {
    echo "Xvfb did not start: $(cat "$work/server.log")" >&2
    exit 1
}
export DISPLAY=":$number"

"$program" "${options[@]}" >"$work/out" 2>&1 &
window_program=$!

within() { # within SECONDS COMMAND...: until it succeeds, or the time is over
    local end=$((SECONDS + $1))
    shift
    until "$@"; do
        if [ "$SECONDS" -ge "$end" ] || ! kill -0 "$window_program" 2>/dev/null; then
            return 1
        fi
        sleep 0.05
    done
}
find_window() {
    window=$(xdotool search --onlyvisible --pid "$window_program" 2>/dev/null | tail -n 1)
    [ -n "$window" ]
}
# Painted: more than one colour, and two pictures in a row alike.
settled() {
    import -window "$window" "$work/new.png" 2>/dev/null || return 1
    [ "$(identify -format %k "$work/new.png")" -gt 1 ] || return 1
    if [ -f "$work/old.png" ] && [ "$(compare -metric AE "$work/old.png" "$work/new.png" \
        null: 2>&1)" = 0 ]; then
        return 0
    fi
    mv "$work/new.png" "$work/old.png"
    return 1
}
wait_for_picture() {
    rm -f "$work/old.png"
    within 15 settled || {
        echo "The window did not come to rest. $(cat "$work/out")" >&2
        exit 1
    }
}
x_key() { # the X name of a key as the menus write it
    local key=$1 prefix=
    while [[ $key =~ ^(Ctrl|Alt|Shift)-(.+)$ ]]; do
        prefix+=${BASH_REMATCH[1],,}+
        key=${BASH_REMATCH[2]}
    done
    case $key in
        Enter) key=Return ;;
        Esc) key=Escape ;;
        PgUp) key=Prior ;;
        PgDn) key=Next ;;
        Ins) key=Insert ;;
        Del) key=Delete ;;
        Backspace) key=BackSpace ;;
        Space) key=space ;;
    esac
    printf '%s%s' "$prefix" "$key"
}

within 20 find_window || {
    echo "No window appeared. $(cat "$work/out")" >&2
    exit 1
}
wait_for_picture
xdotool windowfocus "$window"
for key in "$@"; do
    case $key in
        text:*) xdotool type --delay 20 -- "${key#text:}" ;;
        *) xdotool key --delay 20 "$(x_key "$key")" ;;
    esac
    wait_for_picture
done
cp "$work/new.png" "$file"
