#!/usr/bin/env bash
# Style of all sources, and (unless called with --style) the linter over the pure layers. Clang 16: the first that knows std::source_location.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

mapfile -t sources < <(git ls-files '*.cpp' '*.h')
clang-format --dry-run --Werror "${sources[@]}"
[ "${1:-}" != --style ] || exit 0

cmake --preset dev >/dev/null
mapfile -t pure < <(git ls-files 'src/*.cpp' 'cli/*.cpp' 'bench/*.cpp' 'meter/*.cpp' | grep -v '/qt/')
# One file each, as many at once as there are cores.
printf '%s\n' "${pure[@]}" | xargs -P "$(nproc)" -n 4 clang-tidy-16 --quiet -p build/dev 2> >(grep -v 'warnings generated' >&2)
