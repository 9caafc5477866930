#!/usr/bin/env bash
# What can be said of the packages without installing them.
#   packaging/test/files.sh FOLDER    the folder with the packages
set -euo pipefail
packages=$(realpath "$1")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

lintian --pedantic --fail-on error,warning,info,pedantic "$packages"/*.deb

for package in "$packages"/*.deb; do
    dpkg-deb -x "$package" "$work"
done
desktop-file-validate "$work"/usr/share/applications/*.desktop
appstreamcli validate --no-net "$work"/usr/share/metainfo/*.xml
for page in "$work"/usr/share/man/man1/*.gz; do
    said=$(LC_ALL=C.UTF-8 MANROFFSEQ='' MANWIDTH=80 man --warnings -E UTF-8 -l -Tutf8 -Z "$page" 2>&1 >/dev/null)
    if [ -n "$said" ]; then
        echo "$page: $said" >&2
        exit 1
    fi
done

# The portable archive, from a folder with blanks and Chinese in its name, without what this system has of Qt.
folder="$work/相机 检测 站"
mkdir "$folder"
tar -C "$folder" -xzf "$packages"/KestDetector-*.tar.gz
program=$(echo "$folder"/KestDetector-*/KestDetector)
if LC_ALL=C.UTF-8 ldd "$program" | grep -E 'libQt|not found' | grep -vF "$folder"; then
    echo "The portable station takes Qt from elsewhere" >&2
    exit 1
fi
# One version everywhere.
said=$(QT_QPA_PLATFORM=offscreen "$program" --version)
for package in "$packages"/*.deb; do
    version=$(dpkg-deb -f "$package" Version)
    [ "$said" = "KestDetector $version" ] || { echo "$package has version $version, the program says: $said" >&2; exit 1; }
done
# No camera is there, which takes its settings, its window and its folder to find out.
status=0
XDG_RUNTIME_DIR=$work QT_QPA_PLATFORM=offscreen "$program" --run camera --connect-timeout 1 --close-after 20000 || status=$?
[ "$status" -eq 3 ] || { echo "The portable station ended with $status" >&2; exit 1; }
echo "packages: files are as they should be"
