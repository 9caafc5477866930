#!/usr/bin/env bash
# Runs the emulated camera with the scenario file $1 and the station together; called by ./run.
set -euo pipefail
cd "$(dirname "$0")/.."

output=build/run
mkdir -p "$output"
ready=$(mktemp "$output/ready.XXXXXX")

station=
build/bin/camera-emulator --scenario "$1" >"$ready" &
emulator=$!
end_both()
{
    # The station saves the log of a run that it has to cut short, so it goes first, while its camera is still there.
    for program in $station $emulator; do
        kill "$program" 2>/dev/null || true
        wait "$program" 2>/dev/null || true
    done
    rm -f "$ready"
}
trap end_both EXIT
trap 'exit 129' HUP
trap 'exit 130' INT
trap 'exit 143' TERM

for _ in $(seq 300); do
    if grep -q ready "$ready" || ! kill -0 "$emulator" 2>/dev/null; then
        break
    fi
    sleep 0.1
done
if ! grep -q ready "$ready"; then
    echo "The emulated camera did not start." >&2
    exit 1
fi
cat "$ready"

options=()
if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    echo "No display: unattended run of all components on the offscreen platform."
    options=(-platform offscreen --run all --save-path "$output" --screenshot "$output/station.png")
fi
build/bin/KestDetector "${options[@]}" &
station=$!
status=0
# In the background, because the shell acts on a signal at once only while it waits.
wait "$station" || status=$?
station=
if [ ${#options[@]} -gt 0 ]; then
    echo "Logs: $output/log    Screenshot: $output/station.png"
fi
exit $status
