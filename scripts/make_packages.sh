#!/usr/bin/env bash
# Makes the Debian packages of a release build, in its folder packages/. Usage: make_packages.sh BUILD_FOLDER
set -euo pipefail
cd "$1"
umask 022 # the permissions of the packed folders
rm -rf packages
cpack >cpack.log 2>&1 || { cat cpack.log >&2; exit 1; }
