#!/usr/bin/env bash
# Builds libzil.so and runs every example program.
set -euo pipefail
cd "$(dirname "$0")/.."
bash tools/setup.sh
jobs=$(nproc)
cmake -S . -B build/release -G Ninja -DCMAKE_BUILD_TYPE=Release -DZIL_TESTS=OFF >/dev/null
cmake --build build/release -j"$jobs"
for src in examples/*.c; do
  name=$(basename "$src" .c)
  echo "==== $name"
  "build/release/examples/$name"
done
