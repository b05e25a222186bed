#!/usr/bin/env bash
# Builds and runs the whole test suite: the release build, then the
# AddressSanitizer+UndefinedBehaviorSanitizer build, then the concurrency
# tests under ThreadSanitizer.
set -euo pipefail
cd "$(dirname "$0")/.."
bash tools/setup.sh
jobs=$(nproc)

run_suite() {
  local dir=$1; shift
  local label=$1; shift
  echo "==== $dir"
  cmake -S . -B "$dir" -G Ninja "$@" >/dev/null
  cmake --build "$dir" -j"$jobs"
  if [ -n "$label" ]; then
    ctest --test-dir "$dir" -j"$jobs" --output-on-failure -L "$label"
  else
    ctest --test-dir "$dir" -j"$jobs" --output-on-failure
  fi
}

run_suite build/release "" -DCMAKE_BUILD_TYPE=Release
run_suite build/sanitize "" -DCMAKE_BUILD_TYPE=Debug -DZIL_SANITIZE=ON
run_suite build/tsan concurrency -DCMAKE_BUILD_TYPE=RelWithDebInfo -DZIL_TSAN=ON -DZIL_EXAMPLES=OFF
