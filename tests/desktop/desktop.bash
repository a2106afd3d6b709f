# What the tests on a real desktop share. To be sourced; expects $program, the desktop program.
#
# Everything that a test starts lives in one temporary folder and ends with the test: the X server
# or compositor, the window manager, the tray and the program.

set -u
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
