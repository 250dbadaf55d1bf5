#!/usr/bin/env bash
# Measures a cross build against the device's budgets and prints the figures:
#   - the size of the stripped dvrgui (at most 4 MiB now that every screen is in; the
#     toolkit and start-up alone kept within 1 MiB);
#   - dvrgui's resident memory once the first screen is up on a 1920x1080 memory
#     framebuffer, against recorder-sim, both run by qemu-user (at most 24 MiB). Only the
#     guest's pages count: qemu reserves the target's 4 GiB address space in one place
#     (-d page names it), so the pages resident inside it are the program's own and the
#     emulator's translation buffers and heap lie outside;
#   - with --tests, the whole test suite under the emulator (ctest's summary).
#
#   tools/target-budgets.sh BUILD_DIR [--tests]
# Exit status 1 when a budget is exceeded or a measurement could not be taken.
set -euo pipefail
cd "$(dirname "$0")/.."
ROOT=$(pwd)
build=${1:?cross build folder (e.g. build-armhf)}
run_tests=${2:-}

kSizeBudget=$((4 * 1024 * 1024)) # bytes
kRssBudget=$((24 * 1024))    # kB

cache() { sed -n "s/^$1:[A-Z]*=//p" "$build/CMakeCache.txt"; }
qemu=$(cache VY_QEMU)
strip=$(cache CMAKE_STRIP)
prefix=$(cache CMAKE_SYSROOT)
[ -n "$prefix" ] || prefix=$(cache VY_TARGET_ROOT)
if [ -z "$qemu" ] || [ ! -x "$build/src/app/dvrgui" ]; then
    echo "target-budgets: $build is not a cross build with qemu-user and dvrgui" >&2
    exit 1
fi
[ -n "$prefix" ] || prefix=/usr/$(basename "$strip" | sed 's/-strip$//')

work=$(mktemp -d /tmp/vy-budgets-XXXXXX)
sim_pid=""
gui_pid=""
cleanup() {
    [ -n "$gui_pid" ] && kill "$gui_pid" 2>/dev/null && wait "$gui_pid" 2>/dev/null
    [ -n "$sim_pid" ] && kill "$sim_pid" 2>/dev/null && wait "$sim_pid" 2>/dev/null
    rm -rf "$work"
}
trap cleanup EXIT
failed=0

"$strip" -o "$work/dvrgui" "$build/src/app/dvrgui"
size=$(stat -c %s "$work/dvrgui")
verdict=within
[ "$size" -le "$kSizeBudget" ] || { verdict=OVER; failed=1; }
echo "dvrgui stripped: $size bytes (budget $kSizeBudget): $verdict"

# Waits for a line in a log; the deadline only keeps a broken build from hanging here.
wait_for() { # file text
    local i
    for i in $(seq 600); do
        grep -q "$2" "$1" 2>/dev/null && return 0
        sleep 0.1
    done
    return 1
}

socket="$work/ipc.sock"
: >"$work/sim.conf"
VY_IPC_SOCKET=$socket VY_SIM_CONFIG=$work/sim.conf \
    "$qemu" -L "$prefix" "$build/tools/recorder-sim/recorder-sim" </dev/null >"$work/sim.log" 2>&1 &
sim_pid=$!
wait_for "$work/sim.log" "sim: listening on" || { cat "$work/sim.log"; exit 1; }
(cd "$ROOT/resources" &&
    VY_IPC_SOCKET=$socket VY_FBDEV_NODE=mem:1920x1080 VY_DELAYED_START_SCALE=0.01 \
        exec "$qemu" -L "$prefix" -d page -D "$work/qemu.log" "$ROOT/$build/src/app/dvrgui" \
        </dev/null >"$work/gui.log" 2>&1) &
gui_pid=$!
if ! wait_for "$work/gui.log" "GUI: first screen"; then
    echo "target-budgets: dvrgui showed no first screen" >&2
    cat "$work/gui.log" >&2
    exit 1
fi
base=$(sed -n 's/^Locating guest address space @ \(0x[0-9a-f]*\).*/\1/p' "$work/qemu.log" | head -1)
[ -n "$base" ] || base=$(sed -n 's/^guest_base *\(0x[0-9a-f]*\).*/\1/p' "$work/qemu.log" | head -1)
# The first screen's line comes before its paint reaches the framebuffer: the largest of
# samples over the next two seconds counts.
read -r guest host < <(python3 - "$gui_pid" "${base:-0}" <<'EOF'
import re, sys, time
pid, base = int(sys.argv[1]), int(sys.argv[2], 16)
most = (0, 0)
for _ in range(10):
    guest = host = 0
    inside = False
    for line in open(f"/proc/{pid}/smaps"):
        m = re.match(r"([0-9a-f]+)-[0-9a-f]+ ", line)
        if m:
            start = int(m.group(1), 16)
            inside = base <= start < base + (1 << 32)
        elif line.startswith("Rss:"):
            kb = int(line.split()[1])
            if inside:
                guest += kb
            else:
                host += kb
    most = max(most, (guest, host))
    time.sleep(0.2)
print(*most)
EOF
)
verdict=within
[ "$guest" -le "$kRssBudget" ] || { verdict=OVER; failed=1; }
echo "dvrgui resident at the first screen, 1920x1080 under $(basename "$qemu"): $guest kB" \
    "(budget $kRssBudget kB): $verdict; the emulator's own $host kB not counted"

if [ "$run_tests" = "--tests" ]; then
    start=$(date +%s)
    ctest --test-dir "$build" -j "${JOBS:-$(nproc)}" >"$work/ctest.log" 2>&1 || failed=1
    echo "tests under $(basename "$qemu"): $(grep 'tests passed' "$work/ctest.log")" \
        "in $(($(date +%s) - start)) s"
    grep -A100 'The following tests FAILED' "$work/ctest.log" || true
fi
exit "$failed"
