# shellcheck shell=bash disable=SC2034
# The packages that ./play and ./check need, and how a missing one gets onto the machine. Sourced, never run.

# What it takes to build the program and play on it.
PLAY_PACKAGES=(build-essential cmake ninja-build pkg-config qt6-base-dev qt6-svg-dev libgl-dev libpulse-dev fairy-stockfish)

# What it takes to see the program without a display.
PICTURE_PACKAGES=(xvfb imagemagick)

# What it takes to check the tree, beyond the above.
CHECK_PACKAGES=(ccache libgtest-dev libgmock-dev libbenchmark-dev clang clang-format clang-tidy python3 git
    pgn-extract xvfb openbox xdotool imagemagick xauth x11-utils x11-xserver-utils
    dbus-daemon at-spi2-core gir1.2-atspi-2.0 python3-gi
    pulseaudio pulseaudio-utils locales weston qt6-wayland
    lintian desktop-file-utils appstream man-db mmdebstrap)

# Prints those of the packages named that are not installed, one a line.
missingPackages() {
    local package
    for package in "$@"; do
        case $(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null) in
            installed) ;;
            *) printf '%s\n' "$package" ;;
        esac
    done
}

# Installs those of the packages named that are missing, and says which. Ends the script with a message where
# that cannot be done. BRIGHTRANK_SKIP_PACKAGES=1 takes everything as installed, for systems that do without apt.
installPackages() {
    [ "${BRIGHTRANK_SKIP_PACKAGES:-}" = 1 ] && return 0
    if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
        {
            echo "This system has no apt, so nothing can be installed for you. Needed, by their Debian names:"
            echo "  $*"
            echo "Install these your own way, then run again with BRIGHTRANK_SKIP_PACKAGES=1."
        } >&2
        exit 1
    fi
    local missing
    mapfile -t missing < <(missingPackages "$@")
    [ ${#missing[@]} -eq 0 ] && return 0

    local asRoot=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "Missing packages, and there is no sudo here. As root, run:" >&2
            echo "  apt-get update && apt-get install ${missing[*]}" >&2
            exit 1
        fi
        asRoot=(sudo)
    fi
    echo "Installing through apt: ${missing[*]}"
    # `env` stands behind sudo because sudo drops the variables of its caller.
    if ! "${asRoot[@]}" apt-get update -q ||
        ! "${asRoot[@]}" env DEBIAN_FRONTEND=noninteractive \
            apt-get install -q -y --no-install-recommends "${missing[@]}"; then
        echo "apt could not install: ${missing[*]}" >&2
        exit 1
    fi
}
