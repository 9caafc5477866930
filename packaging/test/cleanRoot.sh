#!/usr/bin/env bash
# Installs the packages in a Debian root made for it, has an ordinary user run them there, upgrades and removes them.
#   packaging/test/cleanRoot.sh FOLDER    the folder with the packages
# Skipped with a message where no such root can be made.
set -euo pipefail
packages=$(realpath "$1")
work=$(mktemp -d)
root=$work/root
trap 'rm -rf --one-file-system "$work"' EXIT

skip()
{
    echo "packages: not tried in a clean root: $1"
    exit 0
}

fail()
{
    echo "packages: $1" >&2
    exit 1
}

[ "$(id -u)" -eq 0 ] || skip "that takes root"
unshare -m -n -p -f true 2>/dev/null || skip "this system gives no namespaces"
mmdebstrap --variant=minbase --include=xvfb,xauth,iproute2,util-linux,fonts-wqy-microhei \
    "$(. /etc/os-release && echo "$VERSION_CODENAME")" "$root" >"$work/mmdebstrap.log" 2>&1 ||
    skip "mmdebstrap: $(tail -n 1 "$work/mmdebstrap.log")"

# The version before: the same with a lower number and another line in its settings.
mkdir "$root/packages" "$work/before"
cp "$packages"/*.deb "$root/packages"
station=$(cd "$packages" && echo kestdetector_*.deb)
dpkg-deb -R "$packages/$station" "$work/before/station"
sed -i 's/^Version: .*/Version: 0.9/' "$work/before/station/DEBIAN/control"
echo "; of the version before" >>"$work/before/station/etc/kestdetector/option.ini"
sed -i '/option.ini/d' "$work/before/station/DEBIAN/md5sums"
dpkg-deb -b "$work/before/station" "$root/packages/before.deb" >/dev/null

# in_root [-n] COMMAND...: as root in the new root, in mounts and processes of its own; -n: in a network of its own too.
in_root()
{
    local namespaces=(-m -p -f)
    if [ "$1" = -n ]; then
        namespaces+=(-n)
        shift
    fi
    unshare "${namespaces[@]}" sh -c '
        set -e
        mount --bind "$1" "$1"
        mount --rbind /dev "$1/dev"
        mount -t proc proc "$1/proc"
        cp -L /etc/resolv.conf "$1/etc/resolv.conf" 2>/dev/null || true
        cd "$1"
        shift
        mkdir -p before
        # No chroot: that would leave an ordinary user without user namespaces.
        pivot_root . before
        umount -l before
        exec "$@"' sh "$root" "$@"
}

apt="apt-get -q -y -o Dpkg::Options::=--force-confold -o Dpkg::Options::=--force-confdef --no-install-recommends"
export DEBIAN_FRONTEND=noninteractive
in_root apt-get -q update >"$work/update.log" 2>&1 || skip "no mirror is reachable"

in_root sh -c "$apt install /packages/before.deb /packages/kestdetector-emulator_*.deb" >"$work/install.log" 2>&1 ||
    fail "installing: $(tail -n 5 "$work/install.log")"
echo "; changed by hand" >>"$root/etc/kestdetector/option.ini"
in_root sh -c "$apt install /packages/$station" >"$work/upgrade.log" 2>&1 ||
    fail "upgrading: $(tail -n 5 "$work/upgrade.log")"
grep -q '; changed by hand' "$root/etc/kestdetector/option.ini" || fail "the upgrade has replaced a changed option.ini"

# An ordinary user with a window of Xvfb, and the packaged camera in the same network.
in_root useradd -m worker
cat >"$root/run.sh" <<'END'
set -e
ip link set lo up
sysctl -q net.ipv4.ip_unprivileged_port_start=0 || echo 0 >/proc/sys/net/ipv4/ip_unprivileged_port_start
cd /home/worker
exec setpriv --reuid worker --regid worker --init-groups env HOME=/home/worker TMPDIR=/tmp sh -c '
    camera-emulator --scenario /usr/share/kestdetector-emulator/scenarios/healthy.json >camera.txt 2>&1 &
    camera=$!
    for try in $(seq 100); do grep -q ^ready camera.txt && break; sleep 0.1; done
    xvfb-run -a KestDetector --run all
    status=$?
    kill $camera
    wait $camera
    exit $status'
END
in_root -n sh /run.sh >"$work/run.log" 2>&1 || fail "the run: $(tail -n 30 "$work/run.log"; cat "$root/home/worker/camera.txt")"
grep -q '^Result: OK$' "$work/run.log" || fail "the run has not passed"
home=$root/home/worker
[ -s "$home/.local/state/KestDetector/log.txt" ] || fail "no diagnostic log in the user's state folder"
for file in DetectorLog.txt log.tar.gz dmesg.txt; do
    [ -s "$(echo "$home"/Documents/KestDetector/log/*/$file)" ] || fail "$file is not among the user's documents"
done

in_root sh -c "$apt remove kestdetector kestdetector-emulator" >"$work/remove.log" 2>&1 || fail "removing"
[ -f "$root/etc/kestdetector/option.ini" ] || fail "option.ini has gone before the purge"
in_root sh -c "$apt purge kestdetector kestdetector-emulator" >"$work/purge.log" 2>&1 || fail "purging"
left=$(in_root sh -c 'find /etc /usr /var/lib -xdev -iname "*kestdetector*" -o -iname "*camera-emulator*"')
[ -z "$left" ] || fail "left behind: $left"
echo "packages: installed, run, upgraded and purged in a clean root"
