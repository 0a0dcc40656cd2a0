#!/usr/bin/env bash
# Runs the benchmarks of a build under an X server of their own.
#   bench.sh FOLDER_OF_PROGRAMS [NAME ...]     names without "_bench"; all without any
# The status is 1 when a figure is over its limit.
set -euo pipefail
programs=$1
shift

work=$(mktemp -d)
server=""
finish() {
    [ -n "$server" ] && kill "$server" 2>/dev/null
    rm -rf "$work"
}
trap finish EXIT

mkfifo "$work/number"
Xvfb -displayfd 3 -screen 0 2600x1800x24 -nolisten tcp 3>"$work/number" 2>"$work/log" &
server=$!
read -r -t 20 number <"$work/number" || {
    echo "Xvfb did not start: $(cat "$work/log")" >&2
    exit 1
}
export DISPLAY=":$number"

failed=0
for program in "$programs"/*_bench; do
    name=$(basename "$program" _bench)
    [ $# -eq 0 ] || [[ " $* " == *" $name "* ]] || continue
    "$program" || failed=1
done
exit "$failed"
