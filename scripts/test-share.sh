#!/usr/bin/env bash
# Prints the tests' share of the code: non-blank, non-comment lines of tests/ and fuzz/ (the fuzz
# harnesses are tests too) against those of src/, simulator/ and bench/ (C++ sources and headers).
# Exits 1 above 40 %.
set -euo pipefail
cd "$(dirname "$0")/.."
count() {
  find "$@" -type f \( -name '*.cpp' -o -name '*.h' \) -print0 |
    xargs -0 cat |
    # Drops block comments, then line comments and blank lines.
    sed -e ':a' -e '/\/\*/{/\*\//!{N;ba' -e '}' -e 's#/\*.*\*/##' -e '}' |
    grep -v -E '^[[:space:]]*(//.*)?$' | wc -l
}
tests=$(count tests fuzz)
code=$(count src simulator bench)
share=$(( tests * 1000 / code ))
printf 'tests %d lines, code %d lines: %d.%d %%\n' "$tests" "$code" $((share / 10)) $((share % 10))
[ "$share" -le 400 ]
