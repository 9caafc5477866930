# Shared by run, test, .ci/run and what else builds: packages, building, and running the tests.
# To be sourced with the project's folder as the current directory.

build_packages="g++ cmake ninja-build qtbase5-dev qttools5-dev qttools5-dev-tools qttranslations5-l10n libqt5sql5-sqlite libqt5sql5-psql libqwt-qt5-dev libsimdjson-dev libdeflate-dev libpq-dev libboost-dev busybox-static python3 python3-pyftpdlib fonts-wqy-microhei"
# Beside them, what only the tests use.
test_packages="curl openssl postgresql python3-jsonschema libxml2-utils"

# In the place of Qt 5, for the preset qt6.
qt6_packages="qt6-base-dev qt6-tools-dev qt6-l10n-tools qt6-translations-l10n libqt6sql6-sqlite libqt6sql6-psql libgl-dev"
# For the packages.
package_packages="dpkg-dev file librsvg2-bin patchelf"

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

# give_back: what root has made in the build folders goes to the owner of the project, who can then go on without sudo.
give_back()
{
    [ "$(id -u)" -eq 0 ] || return 0
    local folder
    for folder in build build-*; do
        if [ -d "$folder" ]; then
            chown -R -h --reference=. "$folder"
        fi
    done
}
trap give_back EXIT

# may_write FOLDER: whether everything in it is ours to write; tells what helps if not. An absent one has to be made.
may_write()
{
    local folder=$1
    local foreign=
    if [ -d "$folder" ]; then
        foreign=$(find "$folder" ! -user "$(id -u)" ! -type l ! -writable -print -quit)
    elif [ ! -w . ]; then
        foreign=$PWD
    fi
    if [ -n "$foreign" ]; then
        echo "$foreign belongs to $(stat -c %U "$foreign") and cannot be written to. Build as that user, or take it over:" \
            "sudo chown -R $(id -un) '$PWD'" >&2
        return 1
    fi
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
    may_write "$folder" || return
    if [ ! -f "$folder/build.ninja" ]; then
        cmake --preset "$preset"
    fi
    cmake --build --preset "$preset" "$@"
}

# run_tests PRESET [CTEST OPTIONS]: what the system does not allow is skipped, and told in the end.
run_tests()
{
    local status=0
    ctest --preset "$@" || status=$?
    local refusal
    if ! refusal=$(scripts/own-network.sh --port-23 --cage true 2>&1); then
        echo "Tests that need the emulated camera's shell were skipped: $refusal"
    fi
    return $status
}
