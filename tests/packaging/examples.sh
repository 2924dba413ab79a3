#!/usr/bin/env bash
# Builds each example by the line that its page gives, against an installed library and in a copy of the
# installed sources; runs each by the next line on a server of its own, and takes a picture of it.
#   examples.sh PREFIX WORK_DIRECTORY [apart|installed]
# With `apart` each example has a copy of its own, where nothing is left of another one's build. With
# `installed` nothing is built: the line runs the program that is installed as corvidlmw-NAME.
# The pictures are WORK_DIRECTORY/NAME.png. Settings of the build come from the environment.
set -euo pipefail

prefix=$1
work=$2
way=${3:-}
sources=$prefix/share/corvidlmw/examples

if [[ $prefix != /usr ]]; then
    export PKG_CONFIG_PATH=$prefix/lib/pkgconfig CMAKE_PREFIX_PATH=$prefix LD_LIBRARY_PATH=$prefix/lib
fi
rm -rf "$work"
mkdir -p "$work"
server=
client=
clean_up() {
    [[ -z $client ]] || kill "$client" 2>/dev/null || true
    [[ -z $server ]] || kill "$server" 2>/dev/null || true
    wait
}
trap clean_up EXIT

fail() {
    echo "examples.sh: $1" >&2
    [[ ! -s $work/said ]] || cat "$work/said" >&2
    exit 1
}

# A clean server for each program: what one leaves is no other's.
start_server() {
    exec {display_pipe}< <(exec Xvfb -displayfd 1 -screen 0 1400x1050x24 -noreset -nolisten tcp 2>/dev/null)
    server=$!
    local display
    read -r -t 30 display <&"$display_pipe" || fail "Xvfb did not start"
    export DISPLAY=:$display
}

stop_server() {
    kill "$server"
    wait "$server" 2>/dev/null || true
    server=
    exec {display_pipe}<&-
}

# Until the screen has a window on it and two pictures of it are the same.
take_picture() {
    local picture=$1 deadline=$((SECONDS + 60)) seen='' now
    while ((SECONDS < deadline)); do
        kill -0 "$client" 2>/dev/null || return 1
        import -window root "$picture"
        now=$(identify -format '%k %#' "$picture")
        [[ $now == "$seen" ]] && ((${now% *} > 3)) && return
        seen=$now
        sleep 0.3
    done
    return 1
}

# A program shows its window until it is killed; editor-session comes to an end of its own, with pictures.
run_example() {
    local name=$1 line=$2
    start_server
    if [[ $name == editor-session ]]; then
        bash -c "$line" >/dev/null 2>"$work/said" || fail "$name: $line: it failed"
        compgen -G 'build/editor-4-*.png' >/dev/null || fail "$name left no pictures"
        cp build/editor-4-*.png "$work/$name.png"
    else
        bash -c "exec $line" 2>"$work/said" &
        client=$!
        take_picture "$work/$name.png" || fail "$name: $line: no picture of it"
        kill "$client"
        wait "$client" 2>/dev/null || true
        client=
    fi
    [[ ! -s $work/said ]] || fail "$name complained"
    stop_server
}

# The two lines below each name, as NAME, LINE, LINE.
commands() {
    awk '/^## / { name = $2; count = 0 }
         /^    / && name && count < 2 { printf "%s%s", count++ ? "\t" : name "\t", substr($0, 5)
                                         if (count == 2) print "" }' "$sources/README.md"
}

mapfile -t examples < <(commands)
diff <(cd "$sources" && printf '%s\n' */main.c* | cut -d/ -f1 | sort) \
    <(printf '%s\n' "${examples[@]}" | cut -f1 | sort) || fail "not each example has its lines"

for example in "${examples[@]}"; do
    IFS=$'\t' read -r name build_line run_line <<<"$example"
    copy=$work/copy
    [[ $way != apart ]] || copy=$work/$name-copy
    [[ -d $copy ]] || cp -r "$sources" "$copy"
    chmod -R u+w "$copy"
    cd "$copy"
    if [[ $way == installed ]]; then
        [[ -x $prefix/bin/corvidlmw-$name ]] || continue
        read -r _ arguments <<<"$run_line"
        run_line="$prefix/bin/corvidlmw-$name $arguments"
        [[ $arguments != build/* ]] || run_line=$prefix/bin/corvidlmw-$name
    else
        echo "$name: $build_line"
        bash -c "$build_line" >"$work/said" 2>&1 || fail "$name was not built"
    fi
    run_example "$name" "$run_line"
    echo "$name: $run_line: $work/$name.png"
done
echo "${#examples[@]} examples"
