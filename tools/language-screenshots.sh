#!/usr/bin/env bash
# Headless screenshots of one dialog (the start-up wizard over the main view) in several
# languages, switched at run time through the simulator's console as the settings page
# would: the window is not reopened between shots.
#   tools/language-screenshots.sh OUTDIR [INDEX ...]     default: 0 21 22 15
# Writes OUTDIR/language-<name>.png per language index.
set -euo pipefail
ROOT=$(cd "$(dirname "$0")/.." && pwd)
BUILD=${BUILD:-$ROOT/build}
OUT=${1:?output folder}
shift
LANGS=("$@")
[ ${#LANGS[@]} -eq 0 ] && LANGS=(0 21 22 15)
NAMES=(chinese chinese_complex czech danish english finnish french german greek hebrew
       hungarian italian japanese polish portuguese russian spanish thai slovenia romanian
       bulgarian arabic hindi vietnam holland turkey persion svenska korean indonesia brazile
       flemish ukrainian slovak)
TMP=$(mktemp -d /tmp/vy-lang-shots-XXXXXX)
export VY_IPC_SOCKET="$TMP/ipc.sock"
export VY_SIM_STORE="$TMP/params"
export VY_SIM_CONFIG="$TMP/sim.conf"
export VY_FBDEV_NODE="mem:1920x1080:$TMP/framebuffer.raw"
echo "block.21.10 = 1" >"$VY_SIM_CONFIG" # the start-up wizard opens over the main view
mkfifo "$TMP/console"
"$BUILD/tools/recorder-sim/recorder-sim" <"$TMP/console" >"$TMP/sim.log" 2>&1 &
SIM=$!
exec 3>"$TMP/console"
# A GUI that starts before the simulator listens gives up its connection: wait for it.
for _ in $(seq 300); do
    grep -q "sim: listening on" "$TMP/sim.log" 2>/dev/null && break
    sleep 0.1
done
(cd "$ROOT/resources" && exec "$BUILD/src/app/dvrgui") >"$TMP/gui.log" 2>&1 &
GUI=$!
trap 'kill $GUI $SIM 2>/dev/null || true; exec 3>&-' EXIT
for _ in $(seq 300); do
    grep -q "GUI: first screen" "$TMP/gui.log" 2>/dev/null && break
    sleep 0.1
done
sleep 1
# The resident memory at the first screen, fallback fonts configured (budget 24 MiB).
echo "dvrgui at the first screen: $(grep -E "VmRSS|RssAnon|RssFile|RssShmem" /proc/$GUI/status | tr -s " \t" " " | tr "\n" " ")"
mkdir -p "$OUT"
for n in "${LANGS[@]}"; do
    echo "lang $n" >&3
    sleep 1.5
    "$BUILD/tools/fbshot/fbshot" -s 1920x1080 -o "$OUT/language-${NAMES[$n]}.png" "$TMP/framebuffer.raw" >/dev/null
    echo "$OUT/language-${NAMES[$n]}.png"
done
