# SPDX-License-Identifier: GPL-3.0-or-later
# The steps of ./check. Each returns or exits non-zero when something is wrong.

# begin: the environment of all tests, and the closing line, whatever happens.
begin() {
    current="start" finished=0
    make_runtime_folder
    unset DISPLAY WAYLAND_DISPLAY
    export QT_QPA_PLATFORM=offscreen
    export ASAN_OPTIONS=detect_leaks=1:detect_stack_use_after_return=1:strict_string_checks=1
    export LSAN_OPTIONS=suppressions=$root/tests/support/lsan.supp
    export UBSAN_OPTIONS=print_stacktrace=1
    export TSAN_OPTIONS=halt_on_error=1:second_deadlock_stack=1
    trap finish EXIT
    trap 'exit 130' INT TERM
}

finish() {
    local status=$?
    [ -z "$runtime_folder" ] || rm -rf "$runtime_folder"
    local time="$((SECONDS / 60)) min $((SECONDS % 60)) s"
    if [ $status -eq 0 ]; then
        echo "check: passed: $finished steps in $time"
    else
        echo "check: FAILED: $current (after $time)"
    fi
}

# step NAME COMMAND...: says what runs and how long it took; the first failure ends the check.
step() {
    local start=$SECONDS
    current=$1
    echo "== $current"
    shift
    "$@" || exit 1
    finished=$((finished + 1))
    echo "== $current: good, $((SECONDS - start)) s"
}

# run_tests PRESET [ctest option...]
run_tests() {
    local preset=$1 place=()
    shift
    # The thread sanitizer of this compiler does not bear a widely scattered address space.
    [ "$preset" != tsan ] || ! setarch -R true 2>/dev/null || place=(setarch -R)
    # Two that compute, which count twice, or four that drive a window and wait for half of the time.
    # Real threads, displays and servers on a busy machine: what fails once gets a second turn, and
    # the report shows both.
    "${place[@]}" ctest --test-dir "$root/build/$preset" -j 4 --output-on-failure --timeout 600 \
        --no-tests=error --repeat until-pass:2 "$@"
}

sources() {
    (cd "$root" && git ls-files -- 'src/*.h' 'src/*.cpp' 'tests/*.h' 'tests/*.cpp' \
        'fuzz/*.cpp' 'bench/*.h' 'bench/*.cpp' 'tools/*.h' 'tools/*.cpp')
}

check_format() {
    (cd "$root" && sources | xargs -r clang-format --dry-run -Werror)
}

# clang-tidy reads the commands of a build without precompiled headers; what Qt's tool generates
# must be there, the rest need not be compiled.
check_tidy() {
    local folder=$root/build/tidy generated
    (cd "$root" && cmake --preset tidy >/dev/null) || return 1
    generated=$(ninja -C "$folder" -t targets all | sed -n 's/^\([a-z_]*_autogen\): phony$/\1/p')
    [ -z "$generated" ] || ninja -C "$folder" $generated >/dev/null || return 1
    run-clang-tidy -quiet -p "$folder" -j 2 "^$root/(src|tests)/.*\.cpp$" \
        >"$folder/report.txt" 2>&1 && return 0
    sed 's/\x1b\[[0-9;]*m//g' "$folder/report.txt" | grep -E '(warning|error):' | sort -u
    return 1
}

build_fuzz_targets() {
    build fuzz && "$root/tests/media/make_media" "$root/build/media"
}

# Every target starts from fuzz/corpus/NAME, and from the small generated media if it has none;
# what it learns stays in build/fuzz/learned, what it breaks in build/fuzz/finds.
run_fuzz_targets() {
    local target name seeds count=0 folder=$root/build/fuzz
    for target in "$folder"/fuzz_*; do
        [ -x "$target" ] && [ -f "$target" ] || continue
        name=${target##*/fuzz_}
        seeds=$root/fuzz/corpus/$name
        if [ ! -d "$seeds" ]; then
            seeds=$folder/media
            mkdir -p "$seeds"
            find "$root/build/media" -maxdepth 1 -size -64k -type f -name '*.*' \
                -exec cp -u {} "$seeds" \;
        fi
        mkdir -p "$folder/learned/$name" "$folder/finds"
        echo "-- $name, ${FUZZ_SECONDS:-30} s"
        "$target" -max_total_time="${FUZZ_SECONDS:-30}" -timeout=10 -rss_limit_mb=3000 \
            -print_final_stats=1 -artifact_prefix="$folder/finds/$name-" \
            "$folder/learned/$name" "$seeds" >"$folder/$name.log" 2>&1 || {
            tail -60 "$folder/$name.log"
            return 1
        }
        grep -E 'number_of_executed_units|new_units_added' "$folder/$name.log"
        count=$((count + 1))
    done
    echo "-- $count fuzz targets"
    [ $count -gt 0 ] || say "there is no fuzz target"
    [ $count -gt 0 ]
}
