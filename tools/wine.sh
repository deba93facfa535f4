# To be sourced: a wine of the project's own, with its files below build/wine.
export WINEARCH=win64 WINEPREFIX=$PWD/build/wine/prefix HOME=$PWD/build/wine/home
export WINEDEBUG=-all WINEDLLOVERRIDES="mscoree=;mshtml=;winemenubuilder.exe="
PATH=/usr/lib/wine:$PATH

# start_wine DRIVER SCALE: restarts wine's server, which must run before a command in a pipe does, with "x11" or, for
# windows that nobody sees, "null", and with the scale of the screen in percent. Makes the prefix the first time.
start_wine() {
  mkdir -p "$HOME" "$WINEPREFIX"
  if [ ! -e "$WINEPREFIX/ready" ]; then
    echo "Making a wine prefix ..."
    env -u DISPLAY wine64 wineboot --init >/dev/null 2>&1
    touch "$WINEPREFIX/ready"
  fi
  set_wine 'HKCU\Software\Wine\Drivers' Graphics REG_SZ "$1"
  set_wine 'HKCU\Control Panel\Desktop' LogPixels REG_DWORD $((96 * $2 / 100))
  stop_wine # a desktop that is there already would keep its driver
  wineserver -p
}

stop_wine() {
  wineserver -k || true
  wineserver -w
}

set_wine() { wine64 reg add "$1" /v "$2" /t "$3" /d "$4" /f >/dev/null 2>&1; }
