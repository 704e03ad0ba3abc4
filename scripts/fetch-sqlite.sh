#!/usr/bin/env bash
# fetch-sqlite.sh [DIR]: puts the SQLite amalgamation (sqlite3.c, sqlite3.h) into DIR (default
# build/third_party/sqlite3) for the Windows cross build, which has no system SQLite to link.
# It comes from the npm package better-sqlite3, which ships the amalgamation in deps/sqlite3/.
# Both files are pinned by their SHA-256: a fetch that gives anything else fails and leaves DIR
# alone. Nothing fetched here is committed; the build runs this when the files are missing.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
dest=${1:-$here/build/third_party/sqlite3}
# SQLite 3.53.2, as better-sqlite3 12.11.1 ships it. A new version needs new checksums here.
version=12.11.1
pinned="60d2f39a3726cd6b9021da6f4e868608d66fbb6528a9f513dc8ffcc640493422  sqlite3.c
9e69a1353a4288450b0d5239ede11fc7f1f4c8e5eb07491fc8317eacb5b7de7e  sqlite3.h"

matchesPin() {
  (cd "$1" 2>/dev/null && echo "$pinned" | sha256sum --check --status --strict 2>/dev/null)
}

if matchesPin "$dest"; then
  exit 0
fi
if ! command -v npm >/dev/null; then
  echo "fetch-sqlite: npm is needed to fetch better-sqlite3 (Debian package: npm or nodejs)" >&2
  exit 1
fi
work=$(mktemp -d "${TMPDIR:-/tmp}/zq-sqlite.XXXXXX")
trap 'rm -rf "$work"' EXIT
(cd "$work" && npm pack --silent "better-sqlite3@$version" >/dev/null)
tarball=$(ls "$work"/better-sqlite3-*.tgz)
tar -xzf "$tarball" -C "$work" package/deps/sqlite3/sqlite3.c package/deps/sqlite3/sqlite3.h
fetched="$work/package/deps/sqlite3"
if ! matchesPin "$fetched"; then
  echo "fetch-sqlite: the amalgamation in better-sqlite3 $version does not match its pinned SHA-256:" >&2
  (cd "$fetched" && echo "$pinned" | sha256sum --check 2>&1 | sed 's/^/  /') >&2 || true
  exit 1
fi
mkdir -p "$dest"
for file in sqlite3.c sqlite3.h; do
  cp "$fetched/$file" "$dest/$file.part"
  mv "$dest/$file.part" "$dest/$file"
done
echo "fetch-sqlite: SQLite $(sed -n 's/^#define SQLITE_VERSION  *"\(.*\)"/\1/p' "$dest/sqlite3.h") in $dest"
