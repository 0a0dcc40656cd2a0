#!/usr/bin/env bash
# Runs one fuzz program: its seeds first, then new inputs for some seconds.
#   fuzz_target.sh PROGRAM FUZZ_FOLDER WORK_FOLDER SECONDS
# What a crash was made by stays in WORK_FOLDER. The status is that of the program.
set -euo pipefail
program=$1 folder=$2 work=$3 seconds=$4
name=$(basename "$program" _fuzz)
mkdir -p "$work/corpus"
corpora=("$work/corpus")
[ -d "$folder/seeds/$name" ] && corpora+=("$folder/seeds/$name")
options=(-max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -print_final_stats=1
    -artifact_prefix="$work/")
[ -f "$folder/$name.dict" ] && options+=(-dict="$folder/$name.dict")
exec "$program" "${options[@]}" "${corpora[@]}"
