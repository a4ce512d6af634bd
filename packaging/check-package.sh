# SPDX-License-Identifier: GPL-3.0-or-later
# The step of ./check that makes the package and tries it.

# make_package_twice: once here, and once from a copy of the source elsewhere, which no cache helps.
make_package_twice() {
    local again=$root/build/again/tovik
    rm -rf "${again%/*}"
    mkdir -p "$again"
    (cd "$root" && git ls-files -z --cached --others --exclude-standard | tar -c --null -T - ) |
        tar -x -C "$again" || return 1
    "$root/packaging/make_package" && CCACHE_DISABLE=1 "$again/packaging/make_package"
}

# check_package: tests/packaging tells what is looked at.
check_package() {
    make_package_twice || return 1
    TOVIK_PACKAGES=$root/build/package TOVIK_PACKAGES_AGAIN=$root/build/again/tovik/build/package \
        TOVIK_MEDIA=$root/build/media TOVIK_ARTEFACTS=$root/build/package \
        python3 "$root/tests/packaging/test_package.py" -v || return 1
    rm -rf "$root/build/again"
}
