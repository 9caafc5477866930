# Shared by run, test and .ci/run: packages, building, and an environment in which port 23 may be used.
# To be sourced with the project's folder as the current directory.

build_packages="g++ cmake ninja-build qtbase5-dev libboost-dev busybox-static python3 python3-pyftpdlib fonts-wqy-microhei"

# Installs those of the given Debian packages that are missing; asks for sudo only then, and only if not root.
install_missing()
{
    local missing=()
    local package
    for package in "$@"; do
        if ! dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'ok installed'; then
            missing+=("$package")
        fi
    done
    if [ ${#missing[@]} -eq 0 ]; then
        return 0
    fi
    echo "Installing: ${missing[*]}"
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "These Debian packages are missing; have root install them: ${missing[*]}" >&2
            return 1
        fi
        as_root=(sudo)
    fi
    "${as_root[@]}" apt-get update -q
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -q --no-install-recommends "${missing[@]}"
}

# build PRESET [CMAKE BUILD OPTIONS]: configures on the first call, then builds what has changed.
build()
{
    local preset=$1
    shift
    local folder=build
    if [ "$preset" != default ]; then
        folder=build-$preset
    fi
    if [ ! -f "$folder/build.ninja" ]; then
        cmake --preset "$preset"
    fi
    cmake --build --preset "$preset" "$@"
}

# find_low_ports: sets the array low_ports to the words that go before a command so that the emulated camera may listen
# on port 23 in it: none where that is permitted anyway, else a network and user namespace of its own.
find_low_ports()
{
    low_ports=(env)
    local first_free
    first_free=$(cat /proc/sys/net/ipv4/ip_unprivileged_port_start 2>/dev/null || echo 1024)
    if [ "$(id -u)" -eq 0 ] || [ "$first_free" -le 23 ]; then
        return
    fi
    if ! unshare -r -n true 2>/dev/null; then
        cat >&2 <<'END'
The emulated camera's shell listens on port 23, which an ordinary user may not open here, and this system allows no
user namespaces. One of these helps:
  - run the command as root (sudo);
  - sudo sysctl net.ipv4.ip_unprivileged_port_start=23
  - sudo sysctl kernel.unprivileged_userns_clone=1
END
        return 1
    fi
    low_ports=(unshare -r -n sh -c 'busybox ip link set lo up && exec "$@"' sh)
}
