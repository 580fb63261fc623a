# Sourced by the scripts that need a display where there is none. start_display sets DISPLAY, stop_display ends it,
# await_painted PROCESS PICTURE waits until a program has painted its window.

start_display() {
    display_folder=$(mktemp -d)
    mkfifo "$display_folder/number"
    exec 9<>"$display_folder/number" # stays open: the server writes the number and its newline one after the other
    Xvfb -displayfd 9 -screen 0 1280x1024x24 -nolisten tcp >"$display_folder/log" 2>&1 </dev/null &
    display_server=$!
    local number
    if ! read -r -t 30 number <&9; then
        cat "$display_folder/log" >&2
        echo "The virtual display did not start." >&2
        return 1
    fi
    export DISPLAY=:$number
}

stop_display() {
    [ -n "${display_folder:-}" ] || return 0
    kill "$display_server" 2>/dev/null || true
    rm -rf "$display_folder"
    display_folder=
}

# Painted means: there is more than a window's empty background, and it stands still. The answer is 2 when the program
# ended before, and 1 after a minute.
await_painted() {
    local deadline=$((SECONDS + 60)) colours now before=
    while [ "$SECONDS" -lt "$deadline" ]; do
        kill -0 "$1" 2>/dev/null || return 2
        if import -silent -window root "$2" 2>/dev/null && read -r colours now < <(identify -format '%k %#\n' "$2"); then
            [ "$colours" -lt 16 ] || [ "$now" != "$before" ] || return 0
            before=$now
        fi
        sleep 0.2
    done
    return 1
}
