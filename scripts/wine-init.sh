#!/usr/bin/env bash
# Creates the Wine prefix once, before tests run in parallel, so they never race to make it.
export WINEDEBUG=-all
export WINEPREFIX="${WINEPREFIX:-${ZQ_WINEPREFIX:-$HOME/.wine-zqcai}}"
export WINEDLLOVERRIDES="mscoree,mshtml="
if [ ! -f "$WINEPREFIX/system.reg" ]; then
  /usr/lib/wine/wine64 wineboot --init >/dev/null 2>&1 || true
  /usr/lib/wine/wineserver -w 2>/dev/null || true
fi
# No X server here: Wine's null display driver lets programs make (hidden) windows all the same.
if ! grep -q '"Graphics"="null"' "$WINEPREFIX/user.reg" 2>/dev/null; then
  /usr/lib/wine/wine64 reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d null /f >/dev/null 2>&1 || true
  /usr/lib/wine/wineserver -w 2>/dev/null || true
fi
