#!/usr/bin/env bash
# Packs the release build and lets Debian's checker and those of the desktops say what they think of it.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"
exec 8>build/release.lock # ./play builds there too
flock 8
cmake --preset release
cmake --build --preset release -j "$(nproc)" 8>&-
cd build/release
rm -f brightrank_*.deb
cpack 8>&-
package=$(echo brightrank_*.deb)

fail() {
    echo "$*" >&2
    exit 1
}

# Runs a checker, if it is here; all of its complaints count.
check() {
    if ! command -v "$1" >/dev/null; then
        echo "$1 is not here; passed over"
        return 0
    fi
    echo "$*"
    "$@"
}
check lintian --allow-root --tag-display-limit 0 --display-info --pedantic --fail-on error,warning "$package"

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
dpkg-deb --extract "$package" "$folder"
check desktop-file-validate "$folder"/usr/share/applications/*.desktop
check appstreamcli validate --no-net --pedantic --strict "$folder"/usr/share/metainfo/*.xml
for page in "$folder"/usr/share/man/man1/*.gz; do
    complaints=$(MANROFFSEQ='' man --warnings --encoding=UTF-8 --local-file -Tutf8 --ditroff "$page" 2>&1 >/dev/null)
    [ -z "$complaints" ] || fail "$page: $complaints"
done

# No folder of this machine stands in a program, in letters of one byte or of two.
for program in "$folder"/usr/bin/*; do
    if { strings "$program" && strings --encoding=l "$program"; } | grep -F "$root/"; then
        fail "$(basename "$program") names the folder in which it was built"
    fi
done

# The version is that of the project, wherever it is told.
version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' CMakeCache.txt)
for program in brightrank brightrank-play brightrank-practice; do
    told=$("$folder/usr/bin/$program" --version)
    [ "$told" = "$program $version" ] || fail "$program tells its version as \"$told\""
    zcat "$folder/usr/share/man/man1/$program.1.gz" | grep -q "\"Brightrank $version\"" ||
        fail "the manual page of $program is not that of $version"
done
