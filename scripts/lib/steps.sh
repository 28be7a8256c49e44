# shellcheck shell=bash
# shellcheck disable=SC2034  # the scripts that source this file use the variables
# Steps with one line of output each, child processes that end with the script, packages and builds. To be sourced.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
cd "$root" || exit 1
work=$(mktemp -d)
children=()
line_open=

build_packages=(cmake ninja-build g++ g++-mingw-w64-x86-64-posix googletest)
# Without the X libraries Wine still starts, but windows look and behave differently; the fonts decide text sizes.
run_packages=(wine wine64 xvfb fonts-wine fonts-dejavu-core
    libxcomposite1 libxcursor1 libxfixes3 libxi6 libxinerama1 libxrandr2 libxrender1)
monitor_packages=(x11-utils x11-xserver-utils)
lint_packages=(cmake ninja-build g++ g++-mingw-w64-x86-64-posix googletest
    clang clang-format clang-tidy libxml2-utils shellcheck)

say()
{
    printf '%s\n' "$*"
}

# The first part of a line, shown while the step runs; end_line adds how it went.
begin_line()
{
    line_open=yes
    printf '%-44s' "$1"
}

end_line()
{
    line_open=
    say "$1"
}

fail()
{
    printf '%s: %s\n' "${0##*/}" "$1" >&2
    exit 1
}

# Calls on_exit, if the script defines it, with the exit status after every child process has gone.
end_script()
{
    local status=$?
    trap '' INT TERM HUP
    if [[ -n $line_open ]]; then
        end_line 'interrupted'
    fi
    end_children
    rm -rf "$work"
    if declare -F on_exit >/dev/null; then
        on_exit "$status"
    fi
    exit "$status"
}

end_children()
{
    local pid
    for pid in "${children[@]}"; do
        kill -TERM -- "-$pid" 2>/dev/null || true
    done
    for pid in "${children[@]}"; do
        wait "$pid" 2>/dev/null || true
    done
    children=()
}

trap end_script EXIT
trap 'exit 130' INT
trap 'exit 143' TERM HUP

# Starts a background job in a process group of its own, so that its own children can be ended with it; $! is the
# group. The build lock is not passed on.
start()
{
    set -m
    "$@" </dev/null 8>&- &
    set +m
    children+=($!)
}

forget_child()
{
    local pid kept=()
    for pid in "${children[@]}"; do
        [[ $pid == "$1" ]] || kept+=("$pid")
    done
    children=("${kept[@]}")
}

# step TITLE COMMAND [ARGUMENT...]: one line with the time that it took; the end of its output if it fails.
step()
{
    local title=$1 status=0 began=$SECONDS pid
    shift
    begin_line "$title"
    start "$@" >"$work/step.log" 2>&1
    pid=$!
    wait "$pid" || status=$?
    forget_child "$pid"
    if ((status != 0)); then
        end_line 'failed'
        tail -n 80 "$work/step.log" >&2
        exit "$status"
    fi
    end_line "done, $((SECONDS - began)) s"
}

skipped_step()
{
    begin_line "$1"
    end_line "$2"
}

# --- packages

missing_packages()
{
    local package
    for package in "$@"; do
        [[ $(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null) == installed ]] || say "$package"
    done
}

# install_packages PACKAGE...: needs root or sudo only if something is missing. Runs in the foreground, because sudo
# may ask for a password.
install_packages()
{
    local missing as_root=()
    command -v dpkg-query >/dev/null || fail 'needs Debian 12 or a system with its packages (dpkg-query not found)'
    mapfile -t missing < <(missing_packages "$@")
    if ((${#missing[@]} == 0)); then
        skipped_step 'packages' 'all installed'
        return
    fi
    if ((EUID != 0)); then
        command -v sudo >/dev/null || fail "not root and no sudo; let an administrator run:
    apt-get install --no-install-recommends ${missing[*]}"
        sudo -v || fail "sudo refused; missing packages: ${missing[*]}"
        as_root=(sudo)
    fi

    begin_line "packages (${#missing[@]} to install)"
    local began=$SECONDS
    if ! { "${as_root[@]}" apt-get update &&
        "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install --yes --no-install-recommends \
            -o DPkg::Lock::Timeout=600 "${missing[@]}"; } >"$work/apt.log" 2>&1 </dev/null; then
        end_line 'failed'
        tail -n 40 "$work/apt.log" >&2
        fail "could not install: ${missing[*]}"
    fi
    end_line "done, $((SECONDS - began)) s"
}

# --- builds

# One script at a time installs packages, configures and builds.
lock_build()
{
    mkdir -p build
    exec 8>build/.lock
    if ! flock --nonblock 8; then
        say 'waiting for another run to finish building'
        flock 8 &
        wait $!
    fi
}

unlock_build()
{
    exec 8>&-
}

# configure PRESET: not needed while the build files are newer than what only a new configuration would read.
configure()
{
    local generated=build/$1/build.ninja
    if [[ $generated -nt CMakePresets.json ]]; then
        skipped_step "configure $1" 'already done'
    else
        step "configure $1" cmake --preset "$1"
    fi
}

# build PRESET [TARGET...]
build()
{
    local preset=$1
    shift
    step "build $preset" cmake --build --preset "$preset" ${1:+--target "$@"}
}

programs=build/linux-mingw/bin/RelWithDebInfo
session=platform/wine/session
