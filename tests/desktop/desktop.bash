# What the tests on a real desktop share. To be sourced with the test's arguments: the desktop
# program and the notification area that stands in for a panel's.
#
# Everything that a test starts lives in one temporary folder and ends with the test: the X server
# or compositor, the window manager, the tray and the program.

set -u
program=$1
tray_host=${2:-}
scratch=$(mktemp -d)
processes=()
pid=

finish() {
  local process
  for process in "${processes[@]}" $pid; do kill "$process" 2>/dev/null; done
  wait 2>/dev/null
  rm -rf "$scratch"
}
trap finish EXIT

step=
step() { step=$1; printf '  %s\n' "$step"; }

fail() {
  printf 'FAILED: %s: %s\n' "$step" "$1" >&2
  local log
  for log in "$scratch"/*.log; do
    [ -s "$log" ] && { printf -- '--- %s\n' "$(basename "$log")"; tail -n 15 "$log"; } >&2
  done
  exit 1
}

# Waits for at most twenty seconds until a command succeeds: until_true "what it means" COMMAND...
until_true() {
  local what=$1 tries
  shift
  for ((tries = 0; tries < 400; ++tries)); do
    "$@" >/dev/null 2>&1 && return
    sleep 0.05
  done
  fail "$what"
}

# The opposite: that a command fails within twenty seconds.
until_false() {
  local what=$1
  shift
  until_true "$what" eval "! $(printf '%q ' "$@")"
}

needs() {
  local tool
  for tool in "$@"; do
    command -v "$tool" >/dev/null || { echo "This test needs $tool." >&2; exit 1; }
  done
}

ended() { ! kill -0 "$1" 2>/dev/null; }

# The setting NAME in the section Settings, or nothing.
setting() {
  [ -f "$scratch/settings.ini" ] || return 0
  tr -d '\r' <"$scratch/settings.ini" | sed -n "/^\[Settings\]/,/^\[[^S]/s/^$1=//p"
}

# Starts the program on the settings and events of the test and leaves its number in $pid.
start_program() {
  "$program" --settings "$scratch/settings.ini" --file "$scratch/dates.txt" \
    --today 2026-11-20 --now 14:25:10 "$@" >>"$scratch/program.log" 2>&1 &
  pid=$!
}

prepare() {
  export HOME=$scratch XDG_RUNTIME_DIR=$scratch/run XDG_CONFIG_HOME=$scratch XDG_DATA_HOME=$scratch
  export XDG_CACHE_HOME=$scratch/cache LC_ALL=C.UTF-8
  unset WAYLAND_DISPLAY DISPLAY QT_QPA_PLATFORM QT_SCALE_FACTOR XDG_SESSION_TYPE
  # Without a session bus the tray is the one of X11, on every machine the same.
  export DBUS_SESSION_BUS_ADDRESS=unix:path=$scratch/nowhere
  mkdir -m 700 "$XDG_RUNTIME_DIR"
  printf '11.26,Thanksgiving,14,yearly\r\n11.20,Choir practice,0,yearly\r\n' >"$scratch/dates.txt"
}

# An X server without a screen, of 1280x800 pixels or of another size; exports DISPLAY.
start_x() {
  Xvfb -displayfd 3 -screen 0 "${1:-1280x800}x24" -nolisten tcp 3>"$scratch/display" \
    2>"$scratch/xvfb.log" &
  processes+=($!)
  # The number is whole once its line has ended.
  until_true 'no X server' eval '[ "$(wc -l <"$scratch/display")" -eq 1 ]'
  DISPLAY=:$(cat "$scratch/display")
  export DISPLAY
}

start_window_manager() {
  openbox >"$scratch/openbox.log" 2>&1 &
  processes+=($!)
  until_true 'no window manager' sh -c \
    'xprop -root _NET_SUPPORTING_WM_CHECK | grep -q "window id"'
}

# A tray of X11, whose process is $tray.
start_tray() {
  launch_tray
  until_true 'no tray' tray_is_up
}
launch_tray() {
  trayer --edge bottom --align right --widthtype request --height 24 >>"$scratch/trayer.log" 2>&1 &
  tray=$!
  processes+=("$tray")
}
# One that came before the window manager was ready may have given up.
tray_is_up() {
  xdotool search --class trayer && return
  ended "$tray" && launch_tray
  return 1
}

# A session bus of the test's own, on which nothing is started by being called, and a notification
# area for StatusNotifierItems on it, whose process is $host.
start_bus() {
  cat >"$scratch/bus.conf" <<EOF_CONF
<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:path=$scratch/bus</listen>
  <policy context="default">
    <allow send_destination="*"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
EOF_CONF
  dbus-daemon --config-file="$scratch/bus.conf" --nofork --nopidfile >"$scratch/bus.log" 2>&1 &
  processes+=($!)
  until_true 'no session bus' test -S "$scratch/bus"
  export DBUS_SESSION_BUS_ADDRESS=unix:path=$scratch/bus
}
start_host() {
  "$tray_host" serve 2>>"$scratch/host.log" &
  host=$!
  processes+=("$host")
  until_true 'no notification area' eval '"$tray_host" list 2>&1 | wc -l | grep -qx 0 &&
    dbus_has_host'
}
dbus_has_host() {
  dbus-send --session --print-reply --dest=org.freedesktop.DBus / \
    org.freedesktop.DBus.GetNameOwner string:org.kde.StatusNotifierWatcher
}
items() { "$tray_host" list 2>/dev/null; }
has_item() { items | grep -q .; }

caption='Your Tidewarden Upcoming Events'
visible() { xdotool search --onlyvisible --name "^$caption\$"; }
window() { visible | head -n 1; }
