#!/usr/bin/env bash
# Creates the Wine prefix once, before tests run in parallel, so they never race to make it.
export WINEDEBUG=-all
export WINEPREFIX="${WINEPREFIX:-${ZQ_WINEPREFIX:-$HOME/.wine-zqcai}}"
export WINEDLLOVERRIDES="mscoree,mshtml="
if [ ! -f "$WINEPREFIX/system.reg" ]; then
  /usr/lib/wine/wine64 wineboot --init >/dev/null 2>&1 || true
  /usr/lib/wine/wineserver -w 2>/dev/null || true
fi
