# Programs for Windows under Wine, in a prefix of its own. Sourced by run and test.
windows_work=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)/build/windows
wine=/usr/lib/wine/wine64
# Where the libraries of the compiler and of the target are, for programs that are not packed.
windows_libraries=("$(dirname "$(x86_64-w64-mingw32-g++-posix -print-libgcc-file-name)")"
    /usr/x86_64-w64-mingw32/lib "$windows_work/prefix/bin")

export WINEPREFIX=$windows_work/wine WINEDEBUG=-all WINEDLLOVERRIDES=mscoree,mshtml=
WINEPATH=$(printf 'Z:%s;' "${windows_libraries[@]}" | tr / '\\')
export WINEPATH

# Makes the prefix anew. The server's background processes end with the script.
start_wine() {
    rm -rf "$WINEPREFIX"
    trap end_wine EXIT
    under_wine 300 wineboot.exe --init >/dev/null 2>&1
}
end_wine() {
    /usr/lib/wine/wineserver64 -k </dev/null >/dev/null 2>&1 || true
}

# Runs a program of at most so many seconds without a terminal. The caller sends its output to a file:
# Wine's background processes would keep a pipe open.
under_wine() { # SECONDS PROGRAM WORD...
    local limit=$1
    shift
    timeout --kill-after=10 "$limit" "$wine" "$@" </dev/null
}
