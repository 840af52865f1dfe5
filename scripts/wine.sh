# Runs programs for Windows with a wine of our own, which knows nothing of the user's. To be sourced in the project's folder.
# shellcheck shell=sh
export WINEPREFIX="$PWD/build/wine"
# Neither its complaints nor what it would like to install.
export WINEDEBUG=-all
export WINEDLLOVERRIDES=mscoree,mshtml=
# Files may have any name.
export LC_ALL=C.UTF-8
