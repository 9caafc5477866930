#!/bin/sh
# Runs a command in a network in which the fixed ports of the station and the camera are free; every test that uses them
# is started so. Which network that is, is decided here, when the command runs, and nowhere else.
#   own-network.sh [--port-23] [--cage] COMMAND...
# Where the system allows it, the command gets a network of its own. Elsewhere it runs in the common one, as the only
# such command there: the next one waits, and a port that another program holds is an error (exit code 70).
# --port-23, --cage: the command listens on TCP port 23, or starts the emulated camera's shell, whose cage takes root or
# a user namespace. Where that cannot be had, the command is not run: the reason is printed, and the exit code is 77.
# cmake/KestTargets.cmake looks for the words "begins in" and "cannot be run here".

say()
{
    echo "own-network.sh: $*" >&2
}

# The ports of station and camera that some program has in this network.
taken_ports()
{
    for table in udp udp6 tcp tcp6; do
        [ -r /proc/net/$table ] && awk -v protocol=${table%6} '
            BEGIN {
                name["udp:1E61"] = "UDP 7777"
                name["udp:270F"] = "UDP 9999"
                name["tcp:0017"] = "TCP 23"
                name["tcp:0849"] = "TCP 2121"
            }
            {
                split($2, end, ":")
                local = end[1] ~ /^0+$/ || end[1] ~ /00007F$/
                bound = protocol == "udp" || $4 == "0A"
                if (local && bound && (protocol ":" end[2]) in name) print name[protocol ":" end[2]]
            }' /proc/net/$table
    done | sort -u | paste -s -d , -
}

# The lock is this network's own, whichever user and project folder it is asked from. What the command leaves behind does
# not hold it.
if [ "$1" != --locked ]; then
    needs=
    while [ "$1" = --port-23 ] || [ "$1" = --cage ]; do
        needs="$needs$1"
        shift
    done

    for way in "unshare -n" "unshare -r -n"; do
        if $way true 2>/dev/null; then
            say "begins in a network of its own"
            exec $way sh -c 'busybox ip link set lo up && exec "$@"' sh "$@"
        fi
    done

    if [ "$(id -u)" -ne 0 ]; then
        first_free=$(cat /proc/sys/net/ipv4/ip_unprivileged_port_start 2>/dev/null || echo 1024)
        case $needs in
        *--cage*)
            if ! unshare -r true 2>/dev/null; then
                say "cannot be run here: the cage of the emulated camera's shell takes root or user namespaces"
                exit 77
            fi
            ;;
        esac
        if [ -n "$needs" ] && [ "$first_free" -gt 23 ]; then
            say "cannot be run here: an ordinary user may not listen on TCP port 23"
            exit 77
        fi
    fi
    exec flock -o /proc/self/ns/net "$0" --locked "$@"
fi

shift
# The programs of the one before may still be ending.
for _ in 1 2 3 4 5 6 7 8 9 10; do
    taken=$(taken_ports)
    [ -z "$taken" ] && break
    sleep 0.5
done
if [ -n "$taken" ]; then
    say "port clash: another program in this network, such as a station or an emulated camera, has $taken"
    exit 70
fi
say "begins in the common network"
exec "$@"
