#!/usr/bin/env bash
# Builds and runs the whole test suite: the release build, then the
# AddressSanitizer+UndefinedBehaviorSanitizer build, then the concurrency
# tests under ThreadSanitizer.
set -euo pipefail
cd "$(dirname "$0")/.."
bash tools/setup.sh
jobs=$(nproc)

# run_suite DIR TARGET LABEL CMAKE-ARGS...: TARGET and LABEL may be "all".
run_suite() {
  local dir=$1 target=$2 label=$3
  shift 3
  echo "==== $dir"
  cmake -S . -B "$dir" -G Ninja "$@" >/dev/null
  if [ "$target" = all ]; then
    cmake --build "$dir" -j"$jobs"
  else
    cmake --build "$dir" -j"$jobs" --target "$target"
  fi
  local select=()
  [ "$label" = all ] || select=(-L "$label")
  ctest --test-dir "$dir" -j"$jobs" --output-on-failure "${select[@]}"
}

run_suite build/release all all -DCMAKE_BUILD_TYPE=Release
run_suite build/sanitize all all -DCMAKE_BUILD_TYPE=RelWithDebInfo -DZIL_SANITIZE=ON
if [ -d tests/concurrency ]; then
  run_suite build/tsan test_concurrency concurrency -DCMAKE_BUILD_TYPE=RelWithDebInfo -DZIL_TSAN=ON -DZIL_EXAMPLES=OFF
fi
