# SPDX-License-Identifier: GPL-3.0-or-later
# Functions that ./run and ./check share: packages and builds. They expect $root, the
# program's source folder.

say() { echo "${0##*/}: $*" >&2; }

die() {
    say "$*"
    exit 1
}

# packages_of SECTION...: the names that packaging/packages lists there.
packages_of() {
    awk -v wanted=" $* " '
        /^\[/ { section = substr($0, 2, length($0) - 2); next }
        /^[^#]/ && index(wanted, " " section " ") { print $1 }' "$root/packaging/packages"
}

missing_packages() {
    local package
    for package in $(packages_of "$@" | sort -u); do
        case "$(dpkg-query -W -f '${Status}' "$package" 2>/dev/null)" in
            *" ok installed") ;;
            *) echo "$package" ;;
        esac
    done
}

# install_packages SECTION...: by apt, and only if something is missing.
install_packages() {
    command -v dpkg-query >/dev/null || {
        say "not a Debian system; these packages or their like must be there:" \
            $(packages_of "$@" | sort -u)
        return 0
    }
    local missing as_root=()
    missing=$(missing_packages "$@")
    [ -n "$missing" ] || return 0
    say "installing" $missing
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || die "neither root nor sudo; please install:" $missing
        as_root=(sudo)
    fi
    "${as_root[@]}" apt-get update -qq || die "apt-get update failed"
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends $missing >&2 || die "apt-get install failed"
}

# build PRESET [TARGET...]: configures when it must, then builds.
build() {
    local folder=$root/build/$1 targets=()
    [ $# -eq 1 ] || targets=(--target "${@:2}")
    (
        cd "$root" || exit 1
        if [ ! -e "$folder/build.ninja" ] || [ CMakePresets.json -nt "$folder/build.ninja" ]; then
            cmake --preset "$1" >/dev/null || exit 1
            touch "$folder/build.ninja"
        fi
        cmake --build "$folder" -j "${CMAKE_BUILD_PARALLEL_LEVEL:-$(nproc)}" "${targets[@]}"
    ) >&2 || die "the build of $1 failed"
}

# make_runtime_folder: Qt and the sound server want a private one; $runtime_folder is to be
# removed at the end, and is empty if there was one.
make_runtime_folder() {
    runtime_folder=
    [ -z "${XDG_RUNTIME_DIR:-}" ] || return 0
    runtime_folder=$(mktemp -d)
    export XDG_RUNTIME_DIR=$runtime_folder
}
