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
# A test program that finds no server starts it, and the server and the services it brings up
# keep that program's output open: ctest then waits for them, well after the program ended. So
# the server and the services start here, with no output, and the server stays up between the
# test programs (and a while after the last).
/usr/lib/wine/wineserver -p"${ZQ_WINESERVER_LINGER:-30}" </dev/null >/dev/null 2>&1 || true
/usr/lib/wine/wine64 wineboot </dev/null >/dev/null 2>&1 || true
