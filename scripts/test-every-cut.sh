#!/bin/sh
# Opens a small library over a phone, and reads a thumbnail and a file of it, once for every byte that the phone sends,
# with the connection broken behind it, with the tests built in BUILD (default: build/dev), JOBS (default: all
# processors) at a time. Takes many minutes; the ordinary test run leaves out the middle of the database's files.
set -eu
build=${1:-build/dev}
jobs=${2:-$(nproc)}
test=$build/tests/unit/devicehost/afc/devicehost_afc_library_test
for part in 0 1 2 3 4 5 6 7; do
    printf '*ACutIsMended*/%d\0*APhoneThatIsUnplugged*/%d\0' "$part" "$part"
done | PHOTOLIB_EVERY_CUT=1 xargs -0 -P "$jobs" -I FILTER "$test" --gtest_brief=1 --gtest_filter=FILTER
