#!/usr/bin/env bash
# Starts recorder-sim and dvrgui against each other on a socket in a temporary folder.
#   tools/run-gui.sh BUILD_DIR
# With a display (DISPLAY set) the GUI opens a 1280x720 window; without one it draws into a
# 1920x1080 memory framebuffer backed by a file, and a screenshot is taken a few seconds after
# the first screen. Lines typed here go to recorder-sim's console ("help" lists them, e.g.
# "tz CST-8", "net 1", "led 3", "shutdown"). Ctrl-C ends both.
#
# Environment: VY_SIM_CONFIG (simulator configuration file, see SimRecorderConfig.h; default
# tools/recorder-sim/demo.conf, sixteen channels),
# VY_SIM_SCRIPT (a script of timed steps), VY_SIM_STORE (parameter store; default
# BUILD_DIR/recorder-sim.params, so settings survive a restart), SHOT_DELAY (seconds from the
# first screen to the screenshot, default 3).
set -euo pipefail

ROOT=$(cd "$(dirname "$0")/.." && pwd)
BUILD=$(cd "${1:-$ROOT/build}" && pwd)
SIM="$BUILD/tools/recorder-sim/recorder-sim"
GUI="$BUILD/src/app/dvrgui"
FBSHOT="$BUILD/tools/fbshot/fbshot"
SHOT_DELAY=${SHOT_DELAY:-3}

log() { printf '[run] %s\n' "$*"; }

for bin in "$SIM" "$GUI"; do
    [ -x "$bin" ] || { log "missing $bin: build first (./dev build)"; exit 1; }
done

TMP=$(mktemp -d /tmp/dvrgui-run-XXXXXX)
export VY_IPC_SOCKET="$TMP/ipc.sock"
export VY_SIM_STORE="${VY_SIM_STORE:-$BUILD/recorder-sim.params}"
export VY_SIM_CONFIG="${VY_SIM_CONFIG:-$ROOT/tools/recorder-sim/demo.conf}"
# The simulator draws its camera pictures here; the window (or fbshot) shows them beneath
# the interface wherever its pixels are transparent.
export VY_VIDEO_PLANE="$TMP/videoplane.raw"
mkfifo "$TMP/sim-console"

SIM_PID=""
GUI_PID=""
CONSOLE_FD_OPEN=0
cleanup() {
    trap - INT TERM EXIT
    [ -n "$GUI_PID" ] && kill "$GUI_PID" 2>/dev/null || true
    [ -n "$SIM_PID" ] && kill "$SIM_PID" 2>/dev/null || true
    [ -n "$GUI_PID" ] && wait "$GUI_PID" 2>/dev/null || true
    [ -n "$SIM_PID" ] && wait "$SIM_PID" 2>/dev/null || true
    [ "$CONSOLE_FD_OPEN" = 1 ] && exec 3>&- || true
    log "stopped; logs kept in $TMP"
}
trap cleanup EXIT
trap 'exit 130' INT TERM

# The simulator reads its console from a fifo this script feeds; a background process must
# not read the terminal itself.
"$SIM" <"$TMP/sim-console" >"$TMP/recorder-sim.log" 2>&1 &
SIM_PID=$!
exec 3>"$TMP/sim-console"
CONSOLE_FD_OPEN=1
for _ in $(seq 100); do
    grep -q "sim: listening on" "$TMP/recorder-sim.log" 2>/dev/null && break
    sleep 0.05
done

HEADLESS=1
if [ -n "${DISPLAY:-}" ]; then
    HEADLESS=0
    export VY_FBDEV_NODE="window:1280x720"
else
    export VY_FBDEV_NODE="mem:1920x1080:$TMP/framebuffer.raw"
fi

(cd "$ROOT/resources" && exec "$GUI") >"$TMP/dvrgui.log" 2>&1 &
GUI_PID=$!

log "recorder-sim pid $SIM_PID, log $TMP/recorder-sim.log"
log "dvrgui pid $GUI_PID on $VY_FBDEV_NODE, log $TMP/dvrgui.log"
log "socket $VY_IPC_SOCKET, parameter store $VY_SIM_STORE"

# Waits for the first screen (or the GUI's end).
wait_first_screen() {
    while kill -0 "$GUI_PID" 2>/dev/null; do
        grep -q "GUI: first screen" "$TMP/dvrgui.log" 2>/dev/null && return 0
        sleep 0.1
    done
    return 1
}

if wait_first_screen; then
    log "$(grep "GUI: first screen" "$TMP/dvrgui.log" | tail -1)"
    if [ "$HEADLESS" = 1 ] && [ -x "$FBSHOT" ]; then
        sleep "$SHOT_DELAY"
        if "$FBSHOT" -s 1920x1080 -v "$VY_VIDEO_PLANE" -o "$TMP/screenshot.png" \
            "$TMP/framebuffer.raw" >/dev/null; then
            log "screenshot: $TMP/screenshot.png"
        else
            log "fbshot failed"
        fi
    fi
else
    log "dvrgui ended before its first screen; see $TMP/dvrgui.log"
    tail -5 "$TMP/dvrgui.log" || true
    exit 1
fi

log "type recorder-sim commands (help), Ctrl-C to stop"
if [ -t 0 ]; then
    while kill -0 "$GUI_PID" 2>/dev/null && IFS= read -r line; do
        printf '%s\n' "$line" >&3
    done
else
    wait "$GUI_PID" || true
fi
