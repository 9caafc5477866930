#!/usr/bin/env bash
# Runs the emulated camera with the scenario file $1 and the station together; called by ./run.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/common.sh

output=build/run
mkdir -p "$output"

station=
emulator=
end_both()
{
    # The station saves the log of a run that it has to cut short, so it goes first, while its camera is still there.
    for program in $station $emulator; do
        kill "$program" 2>/dev/null || true
        wait "$program" 2>/dev/null || true
    done
    give_back
}
trap end_both EXIT
trap 'exit 129' HUP
trap 'exit 130' INT
trap 'exit 143' TERM

exec {from_camera}< <(exec build/bin/camera-emulator --scenario "$1")
emulator=$!
# Its first line comes when all of its services listen.
if ! read -r -t 30 line <&"$from_camera" || [[ $line != ready* ]]; then
    echo "The emulated camera did not start." >&2
    exit 1
fi
echo "$line"

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
