# What the tests of the packaging share. To be sourced.

set -u
export LC_ALL=C.UTF-8
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
export HOME=$scratch/home XDG_RUNTIME_DIR=$scratch/run
export QT_QPA_PLATFORM=offscreen
unset XDG_CONFIG_HOME XDG_DATA_HOME
mkdir -p "$HOME"
mkdir -m 700 "$XDG_RUNTIME_DIR"

failures=0
fail() {
  printf 'FAILED: %s\n' "$*" >&2
  failures=$((failures + 1))
}

needs() {
  local tool
  for tool in "$@"; do
    command -v "$tool" >/dev/null || { echo "This test needs $tool." >&2; exit 1; }
  done
}

# same WHAT EXPECTED ACTUAL
same() {
  [ "$2" = "$3" ] && return
  fail "$1"
  diff <(printf '%s\n' "$2") <(printf '%s\n' "$3") | sed 's/^</  expected:/; s/^>/  actual:  /' >&2
}

# The options in a help text on standard input, one a line, sorted.
options_in_help() {
  sed -n 's/^ \{2,\}\(-[^ ].*\)$/\1/p' | sed 's/   *.*//' |
    grep -oE '(^|[ ,])--?[A-Za-z][A-Za-z-]*' | tr -d ' ,' | sort -u
}
