#!/usr/bin/env bash
# What takes its time: every test once more under AddressSanitizer and UndefinedBehaviorSanitizer.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
cmake --preset asan
cmake --build --preset asan
ctest --preset asan --parallel "$(nproc)"
