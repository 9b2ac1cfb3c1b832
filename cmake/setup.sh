# What ./run and ./test share, to be sourced: the packages, their installation, and the build.
# shellcheck shell=bash disable=SC2034

build_packages=(g++ cmake ninja-build pkg-config qt6-base-dev qt6-svg-dev libzip-dev libxcb1-dev nlohmann-json3-dev fonts-dejavu-core)
test_packages=(googletest libgtest-dev xvfb xauth openbox xdotool imagemagick unzip procps dbus at-spi2-core python3 python3-pyatspi iproute2)
package_packages=(git dpkg-dev debhelper lintian desktop-file-utils appstream man-db mmdebstrap)
real_packages=(openarena-server openarena-data qstat openarena ioquake3 libgl1-mesa-dri libglx-mesa0)
fuzz_packages=(clang libclang-rt-dev llvm)

repository=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

say() { printf '== %s\n' "$*"; }

as_root() {
    if ((EUID == 0)); then
        env DEBIAN_FRONTEND=noninteractive "$@"
    else
        sudo env DEBIAN_FRONTEND=noninteractive "$@"
    fi
}

is_installed() { [[ $(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null) == installed ]]; }

# Installs those of the packages named that are missing; the list of packages is fetched at most once.
install_packages() {
    local package missing=()
    if ! command -v apt-get >/dev/null; then
        say "no apt-get here; needed are: $*"
        return 0
    fi
    for package in "$@"; do
        is_installed "$package" || missing+=("$package")
    done
    ((${#missing[@]} == 0)) && return 0
    say "installing ${missing[*]}"
    if [[ -z ${lists_fetched:-} ]]; then
        as_root apt-get update -q
        lists_fetched=yes
    fi
    as_root apt-get install -q -y --no-install-recommends "${missing[@]}"
}

# Configures and builds a preset; further arguments go to the configuration.
build_preset() {
    local preset=$1
    shift
    say "building ($preset)"
    (cd "$repository" && cmake --preset "$preset" "$@" >/dev/null && cmake --build --preset "$preset" --parallel "$(nproc)")
}
