# Sourced by the scripts of this folder, from the repository's root.

# Configures and builds a preset: build_preset <preset> [target...]. Quiet unless it fails.
build_preset() {
  local preset=$1
  shift
  echo "building $preset"
  if [ ! -f "build/$preset/build.ninja" ]; then
    quietly "configure-$preset" cmake --preset "$preset"
  fi
  quietly "build-$preset" cmake --build "build/$preset" --parallel "${JOBS:-2}" ${1:+--target "$@"}
}

# Runs a command with its output in build/log/<name>; shows the end of it on failure.
quietly() {
  local log=build/log/$1
  shift
  mkdir -p build/log
  if ! "$@" >"$log" 2>&1; then
    tail -n 60 "$log" >&2
    return 1
  fi
}

# The folder that the toolkit and the session bus expect, made when the login has not made it.
ensure_runtime_dir() {
  if [ -z "${XDG_RUNTIME_DIR:-}" ] || [ ! -d "$XDG_RUNTIME_DIR" ]; then
    XDG_RUNTIME_DIR="${TMPDIR:-/tmp}/tarnpick-runtime-$(id -u)"
    mkdir -p -m 700 "$XDG_RUNTIME_DIR"
    export XDG_RUNTIME_DIR
  fi
}
