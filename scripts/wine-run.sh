#!/usr/bin/env bash
# Runs a Windows test executable under Wine, quietly, in a prefix of the build's own.
export WINEDEBUG=-all
export WINEPREFIX="${WINEPREFIX:-${ZQ_WINEPREFIX:-$HOME/.wine-zqcai}}"
export WINEDLLOVERRIDES="mscoree,mshtml="
wine=/usr/lib/wine/wine64
[ -x "$wine" ] || wine=$(command -v wine64 || command -v wine)
exec "$wine" "$@"
