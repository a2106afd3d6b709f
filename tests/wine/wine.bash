# What the tests of the Windows programs share. To be sourced.
#
# Everything that a test starts lives in one temporary folder and ends with the test: the X server,
# the window manager, Wine with a Windows of its own, and the programs.
here=$(dirname "${BASH_SOURCE[0]}")
# shellcheck source=../desktop/desktop.bash
. "$here/../desktop/desktop.bash"

root=$(cd "$here/../.." && pwd)
prefix=$scratch/wine
drive=$prefix/drive_c

stop_windows() { WINEPREFIX=$prefix wineserver --kill 2>/dev/null; }
trap 'stop_windows; finish' EXIT

# wine_run PROGRAM [ARGUMENT...]: under Wine, with the arguments as they are.
wine_run() { "$root/scripts/under-wine" "$prefix" "$@"; }

# The Windows of the test, which then stays up: its own services do not come and go between the
# programs, nor write into what those say.
prepare_windows() {
  needs wine wineserver
  export HOME=$scratch LC_ALL=C.UTF-8 TZ=UTC
  unset WAYLAND_DISPLAY DISPLAY QT_QPA_PLATFORM QT_SCALE_FACTOR
  export DBUS_SESSION_BUS_ADDRESS=unix:path=$scratch/nowhere XDG_RUNTIME_DIR=$scratch/run
  mkdir -m 700 "$XDG_RUNTIME_DIR"
  wine_run cmd /c exit >"$scratch/wine.log" 2>&1 || fail 'Wine does not start'
  # A prompt that waits for input as long as the test runs.
  mkfifo "$scratch/input"
  exec 8<>"$scratch/input"
  wine_run cmd <&8 >/dev/null 2>&1 &
  processes+=($!)
}

prepare_screen() {
  needs Xvfb openbox xdotool xprop xwininfo
  start_x
  start_window_manager
}

# Keeps a picture of the screen for whoever wants to look at it: picture NAME
picture() {
  [ -n "${TIDEWARDEN_PICTURES:-}" ] || return 0
  mkdir -p "$TIDEWARDEN_PICTURES"
  sleep 1
  import -window root "$TIDEWARDEN_PICTURES/$1.png"
}

shown() { xdotool search --onlyvisible --name "$1"; }
first_shown() { shown "$1" | head -n 1; }

# The value NAME of a key below HKEY_CURRENT_USER\Software, as Windows' own tool tells it, in the
# old code page of consoles.
registry() {
  wine_run reg query "HKCU\\Software\\$1" /v "$2" 2>/dev/null | iconv -f CP437 |
    tr -d '\r' | sed -n "s/^ *${2//\//\\/}  *REG_[A-Z_]*  *//p"
}
