#!/bin/sh
# Kills a program that saves, again and again, and looks each time whether every save that it had announced
# is in the store and the store is whole: kill_loop.sh BUILD_FOLDER [ROUNDS]
set -eu
ORVANE_KILL_ROUNDS="${2:-200}" QT_QPA_PLATFORM=offscreen exec "$1/bin/test_model" StoreDurability_test
