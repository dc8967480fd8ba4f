#!/usr/bin/env bash
# What takes its time: the Debian package in a Debian root of its own, turns under Wayland and with PipeWire, every test once
# more under the address and undefined-behaviour sanitizers, the capture thread under ThreadSanitizer, an hour of turns, an
# hour of random keys and clicks, 400 changed operators and constants, changed files of every format
# through the companion, ten million inputs through each fuzzer.
# LOBEGRAPH_HOUR=600 makes the hours shorter, and ends each fuzzer after a tenth of that.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/packages.sh
need $PACKAGES_LONG
export LOBEGRAPH_LONG=1 PYTHONDONTWRITEBYTECODE=1
hour="${LOBEGRAPH_HOUR:-3600}"

scripts/package_test.sh

LOBEGRAPH_PROGRAMS="$PWD/build/dev/bin" LOBEGRAPH_PICTURES="$PWD/build/dev/screenshots" \
  dbus-run-session -- /usr/bin/python3 tests/e2e/modern_desktop_test.py

cmake --preset asan
cmake --build --preset asan
ctest --preset asan --parallel "$(nproc)"

# At addresses that do not wander: the runtime knows no others.
cmake --preset tsan
setarch -R cmake --build --preset tsan
export TSAN_OPTIONS="halt_on_error=1 second_deadlock_stack=1"
setarch -R build/tsan/tests/test_acquisition --gtest_brief=1
setarch -R build/tsan/tests/test_acquisition_qt --gtest_brief=1 --gtest_filter='PulseCapture*'

scripts/monkey.py build/asan/bin --seconds "$hour"
dbus-run-session -- /usr/bin/python3 scripts/endurance.py build/dev/bin --seconds "$hour"
build/asan/bin/lobegraph_mutator fuzz/corpus --seconds "$((hour / 6))"
scripts/mutation.py
scripts/fuzz.py ${LOBEGRAPH_HOUR:+--seconds $((LOBEGRAPH_HOUR / 10))}
