#!/bin/sh
# Holds the arrows between the layers: every include of one of our files must be allowed below. The linker sees only
# what is called. Prints each include that is not, and fails. Usage: scripts/check_layers.sh [FOLDER_OF_THE_SOURCES]
set -eu
cd "${1:-$(dirname "$0")/..}"

# shellcheck disable=SC2016 # $0 is awk's
find platform graphics shell screens game replay program -name '*.cpp' -o -name '*.h' | sort |
    xargs awk '
    # What each layer may include beside itself. What is allowed to one layer is not passed on to those above.
    BEGIN {
        allow["headers"] = ""
        allow["device"] = "headers"
        allow["common"] = "headers"
        allow["calls"] = "headers device common"
        allow["virtual"] = "headers device common"
        allow["sdl"] = "headers device common"
        allow["host"] = "headers sdl"
        allow["graphics"] = "headers"
        allow["shell"] = "headers graphics"
        allow["widgets"] = "headers graphics shell"
        allow["game"] = "headers graphics shell widgets"
        allow["menus"] = "headers graphics shell widgets game"
        allow["startup"] = "headers graphics shell widgets game menus"
        allow["replay"] = "headers device common virtual graphics shell game startup"
        allow["program"] = "headers device common virtual sdl host startup replay"
    }

    function layer(file)
    {
        if (file ~ "^platform/sdl/[a-z_]+/") return "host"
        if (file ~ "^platform/[a-z_]+/") { sub("^platform/", "", file); sub("/.*", "", file); return file }
        if (file ~ "^platform/device\\.h$") return "device"
        if (file ~ "^platform/") return "headers"
        if (file ~ "^screens/(main_menu|shop)") return "menus"
        if (file ~ "^screens/") return "widgets"
        if (file ~ "^shell/startup\\.") return "startup"
        sub("/.*", "", file)
        return file
    }

    # The calls and the hosts implement what stands in the layer below; others see only that.
    /^[[:space:]]*#[[:space:]]*include[[:space:]]*"/ {
        included = $0
        sub("^[^\"]*\"", "", included)
        sub("\".*", "", included)
        from = layer(FILENAME)
        to = layer(included)
        if (from != to && index(" " allow[from] " ", " " to " ") == 0) {
            print FILENAME ":" FNR ": " from " must not include " included
            failed = 1
        }
    }

    # The logic includes nothing but the standard library and ours, and knows no device by name.
    FILENAME ~ "^(graphics|shell|screens|game)/" && (/SDL|VirtualDevice/ || /^[[:space:]]*#[[:space:]]*include[[:space:]]*<[^>]*[\/.]/) {
        print FILENAME ":" FNR ": the logic must not know: " $0
        failed = 1
    }
    FILENAME !~ "^(platform/sdl|program)/" && /SDL_/ {
        print FILENAME ":" FNR ": only platform/sdl knows SDL: " $0
        failed = 1
    }

    END { exit failed }'
