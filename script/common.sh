# What the scripts share. Sourced, not run; the caller has set -euo pipefail.

top=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$top"

# Two compile jobs at most: the machines this is built on are small.
build_preset() { # PRESET [TARGET …]
  local preset=$1
  shift
  cmake --preset "$preset" >"$top/build/$preset-configure.log" 2>&1 || {
    cat "$top/build/$preset-configure.log" >&2
    return 1
  }
  cmake --build --preset "$preset" ${1:+--target "$@"}
}

# Programs that draw need no display and no session bus then.
use_offscreen() {
  export QT_QPA_PLATFORM=offscreen DBUS_SESSION_BUS_ADDRESS=disabled:
  export XDG_RUNTIME_DIR=${XDG_RUNTIME_DIR:-$(mktemp -d)}
}

mkdir -p build
