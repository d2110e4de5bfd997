#!/bin/sh
# Exports one file of 5 GiB, made of zeros that take no room, with the tests built in BUILD (default: build). Takes a
# minute or more, which is why the ordinary test run leaves it out.
set -eu
build=${1:-build}
PHOTOLIB_LARGE_TESTS=1 TZ=UTC exec "$build/tests/unit/exporter/exporter_tests" --gtest_filter='LargeFile.*'
