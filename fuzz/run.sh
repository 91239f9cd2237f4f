#!/usr/bin/env bash
# Builds the fuzz targets and runs all of them, or one, for so many seconds each.
#   fuzz/run.sh SECONDS [TARGET]     for example: fuzz/run.sh 120 stream
# New inputs go to build/fuzz/corpus-TARGET, findings to build/fuzz/finds; the exit status is 1 after a finding.
set -uo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root" || exit 1
if ! [[ ${1:-} =~ ^[1-9][0-9]*$ ]]; then
    sed -n '2,4s/^# //p' "${BASH_SOURCE[0]}" >&2
    exit 2
fi
seconds=$1
targets=(numbers stream rules walk moves style12 def tell settings ini lists help panels pgn wave)
[ $# -gt 1 ] && targets=("$2")

cmake --preset fuzz >/dev/null || exit 1
cmake --build --preset fuzz -j "$(nproc)" --target "${targets[@]/#/fuzz_}" || exit 1

mkdir -p build/fuzz/finds
status=0
for target in "${targets[@]}"; do
    grown=build/fuzz/corpus-$target
    mkdir -p "$grown"
    log=build/fuzz/$target.log
    # The weighing of inputs by rare features costs more than the inputs of the stream do.
    if nice "build/fuzz/fuzz_$target" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=1024 -max_len=6000 \
        -entropic=0 -dict=fuzz/brightrank.dict -artifact_prefix="build/fuzz/finds/$target-" -print_final_stats=1 \
        "$grown" "fuzz/corpus/$target" >"$log" 2>&1; then
        echo "$target: $(grep -o 'cov: [0-9]*' "$log" | tail -n 1), $(grep executed_units "$log")"
    else
        status=1
        echo "$target: FOUND SOMETHING, see $log"
        grep -E 'does not hold|ERROR|runtime error|Test unit' "$log"
    fi
done
exit $status
