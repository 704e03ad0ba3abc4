#!/usr/bin/env bash
# fetch-sqlite.sh [DIR]: puts the SQLite amalgamation (sqlite3.c, sqlite3.h) into DIR (default
# build/third_party/sqlite3) for the Windows cross build, which has no system SQLite to link.
# It comes from the npm package better-sqlite3, which ships the amalgamation in deps/sqlite3/.
# Nothing fetched here is committed; the build runs this when the files are missing.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
dest=${1:-$here/build/third_party/sqlite3}
version=${ZQ_BETTER_SQLITE3_VERSION:-12.11.1}
if [ -f "$dest/sqlite3.c" ] && [ -f "$dest/sqlite3.h" ]; then
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
mkdir -p "$dest"
for file in sqlite3.c sqlite3.h; do
  cp "$work/package/deps/sqlite3/$file" "$dest/$file.part"
  mv "$dest/$file.part" "$dest/$file"
done
echo "fetch-sqlite: SQLite $(sed -n 's/^#define SQLITE_VERSION  *"\(.*\)"/\1/p' "$dest/sqlite3.h") in $dest"
