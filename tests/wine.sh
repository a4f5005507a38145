# Sourced by the scripts that run programs under Wine: who runs them, where, and with what
# environment. Sets checkout, wineBase, stage, prefix, asUser, wineEnvironment, wine.
#
# Wine never runs as root: root may write what is read-only, so that tests of refused writes would
# fail. When root calls, an ordinary user "corvane-test" is made and used.
# That user need not be able to read the checkout: what a program needs is copied into the stage, a
# folder of that user's for this checkout (CORVANE_STAGE names another place).

checkout=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd -P)
wineUser=corvane-test

WineFail() {
    echo "$(basename "$0"): $*" >&2
    exit 1
}

if [ "$(id -u)" = 0 ]; then
    if ! getent passwd "$wineUser" >/dev/null; then
        useradd --system --user-group --create-home --home-dir "/var/lib/$wineUser" \
            --shell /usr/sbin/nologin "$wineUser" 2>/dev/null ||
            getent passwd "$wineUser" >/dev/null || WineFail "cannot add the user $wineUser"
    fi
    wineHome=$(getent passwd "$wineUser" | cut -d: -f6)
    wineBase=$wineHome/.cache/corvane
    asUser=(setpriv "--reuid=$wineUser" "--regid=$wineUser" --init-groups --inh-caps=-all
        env -u XDG_RUNTIME_DIR -u XDG_CACHE_HOME -u XDG_CONFIG_HOME -u TMPDIR
        "HOME=$wineHome" "USER=$wineUser" "LOGNAME=$wineUser")
    ownership=("--chown=$wineUser:$wineUser")
else
    wineBase=${XDG_CACHE_HOME:-$HOME/.cache}/corvane
    asUser=(env)
    ownership=()
fi

stage=${CORVANE_STAGE:-$wineBase/$(basename "$checkout")-$(cksum <<<"$checkout" | cut -d' ' -f1)}
# CORVANE_X86: the folder of tests/wine_x86_files; what runs then is 32-bit, in a stage of its own.
stage+=${CORVANE_X86:+-x86}
prefix=$stage/prefix

# winedbg off: it hangs on a crash. mscoree and mshtml off: nothing to install, quicker start.
# The locale decides on the code pages: 1252 and 850, unless CORVANE_LOCALE names another. The
# library path is the loader's own (Debian's wrapper prints a hint about 32-bit programs each time).
wine=/usr/lib/wine/wine64
wineEnvironment=(env "WINEPREFIX=$prefix" "WINEDLLOVERRIDES=winedbg.exe=d;mscoree,mshtml="
    "WINELOADER=$wine" "WINEDEBUG=${WINEDEBUG:-fixme-all}" "LC_ALL=${CORVANE_LOCALE:-en_GB.UTF-8}"
    ${CORVANE_X86:+"WINEDLLPATH=$CORVANE_X86"})

# Starts a virtual screen with a window manager, of the size CORVANE_SCREEN; sets display, and
# screenPids for EndScreen.
StartScreen() {
    local ready=$stage/display tries
    screenPids=()
    "${asUser[@]}" rm -f "$ready" "$stage/screen.log"
    "${asUser[@]}" touch "$ready" "$stage/screen.log"
    "${asUser[@]}" Xvfb -displayfd 3 -screen 0 "${CORVANE_SCREEN:-1920x1200}x24" -nolisten tcp \
        -noreset \
        3>>"$ready" >>"$stage/screen.log" 2>&1 </dev/null &
    screenPids+=($!)
    for ((tries = 0; tries < 200; ++tries)); do
        [ -s "$ready" ] && break
        sleep 0.05
    done
    [ -s "$ready" ] || WineFail "Xvfb did not start: $(tail -n 3 "$stage/screen.log")"
    display=:$(<"$ready")
    "${asUser[@]}" DISPLAY="$display" openbox --sm-disable >>"$stage/screen.log" 2>&1 </dev/null &
    screenPids+=($!)
    for ((tries = 0; tries < 200; ++tries)); do
        "${asUser[@]}" xprop -display "$display" -root _NET_SUPPORTING_WM_CHECK 2>/dev/null |
            grep -q 'window id' && return
        sleep 0.05
    done
    WineFail "openbox did not start: $(tail -n 3 "$stage/screen.log")"
}

EndScreen() {
    local pid
    for pid in "${screenPids[@]}"; do
        kill "$pid" 2>/dev/null || true
        wait "$pid" 2>/dev/null || true
    done
    screenPids=()
}

# Starts the server of our prefix, which then stays.
StartWine() {
    (cd / && "${asUser[@]}" "${wineEnvironment[@]}" wineserver -p >/dev/null 2>&1)
}

# Ends every program of our own prefix and its server.
EndWine() {
    "${asUser[@]}" "${wineEnvironment[@]}" wineserver -k -w 2>/dev/null || true
}

# Copies what tests read, and the folder of one program, into the stage, laid out as here.
StageFiles() {
    local program=$1 folder present=() item
    case $program in
        "$checkout"/*) folder=$(dirname "${program#"$checkout"/}") ;;
        *) WineFail "$program is outside $checkout" ;;
    esac
    for item in docs tests/golden tests/data fuzz/corpus samples; do
        [ -d "$checkout/$item" ] && present+=("./$item")
    done
    (cd "$checkout" &&
        rsync -a --relative --delete "${ownership[@]}" "./$folder" "${present[@]}" "$stage/tree/")
    "${asUser[@]}" mkdir -p "$stage/tree/tests"
    stagedFolder=$stage/tree/$folder
}
