#!/usr/bin/env bash
# Builds the package of the last commit twice, in two folders of different names, and compares the two byte for byte.
#   tools/reproducible.sh          with a compiler that remembers nothing (12 minutes and 7 on two busy cores)
#   tools/reproducible.sh --quick  with the compiler's cache, for changes of the packaging
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
export CCACHE_DISABLE=1
case "${1:-}" in
    "") ;;
    --quick) unset CCACHE_DISABLE ;;
    *)
        sed -n '2,4s/^# //p' "${BASH_SOURCE[0]}" >&2
        exit 2
        ;;
esac

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
trap 'exit 130' INT
trap 'exit 143' TERM HUP

# Clones the commit to folder $1 and packs it; the package is what standard output names.
package() {
    local copy=$folder/$1
    git clone --quiet "$folder/commit" "$copy"
    (
        cd "$copy" && cmake --preset release && cmake --build --preset release -j "$(nproc)" && cd build/release && cpack
    ) >"$folder/log" 2>&1 || { tail -n 30 "$folder/log" >&2 && return 1; }
    echo "$copy"/build/release/*.deb
}

git clone --quiet --bare "$root" "$folder/commit" # the tree may move on meanwhile
started=$SECONDS
first=$(package one)
echo "The first build took $((SECONDS - started)) s."
# What hangs on the hour, on the names of folders, on the mask of new files or on the language would show.
started=$SECONDS
second=$(umask 027 && TZ=Pacific/Chatham LC_ALL=C.UTF-8 package "another, deeper/and of another name")
echo "The second build took $((SECONDS - started)) s."

sha256sum "$first" "$second" | sed "s#$folder/##"
if cmp "$first" "$second"; then
    echo "The two packages are the same, byte for byte."
    exit 0
fi
for which in one two; do
    archive=$first
    [ "$which" = two ] && archive=$second
    dpkg-deb --raw-extract "$archive" "$folder/files-$which"
    (cd "$folder/files-$which" && find . -type f -exec sha256sum {} + | sort -k 2) >"$folder/list-$which"
    for part in ctrl fsys; do
        dpkg-deb --$part-tarfile "$archive" | tar -tv --full-time >>"$folder/list-$which"
    done
done
diff "$folder/list-one" "$folder/list-two" || true
echo "The packages differ." >&2
exit 1
