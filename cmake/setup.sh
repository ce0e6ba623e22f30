# shellcheck shell=bash
# What ./run and ./test share: package lists, installing, configuring, building. Sourced in the
# root of the repository. All it says goes to stderr, so that stdout belongs to the program.

# shellcheck disable=SC2034 # used by those who source this
build_packages=(g++ cmake ninja-build ccache pkg-config nlohmann-json3-dev
    libcli11-dev libpugixml-dev libzip-dev libxlsxwriter-dev libsqlite3-dev
    libsqlitecpp-dev mdbtools-dev libhowardhinnant-date-dev libssl-dev qt6-base-dev qt6-svg-dev libcups2-dev libqpdf-dev
    qt6-translations-l10n fonts-liberation pandoc python3)
python_packages=(pybind11-dev python3-dev python3-numpy)
test_packages=(libgtest-dev libgmock-dev libbenchmark-dev clang-format poppler-utils
    "${python_packages[@]}" python3-pandas python3-xarray python3-pytest python3-distributed mypy)
tidy_packages=(clang-tidy)
guide_packages=(weasyprint)
package_packages=(debhelper dh-python desktop-file-utils lintian libgtest-dev libgmock-dev)
fuzz_packages=(clang libclang-rt-14-dev)

set_up_failed=4 # exit status; 1 to 3 are those of zel

say() { printf '%s\n' "${0##*/}: $*" >&2; }

# Prints those of the given packages that are not installed. One query, as it runs on every start.
missing_packages() {
    local installed package
    installed=$(dpkg-query -W -f '|${Package} ${db:Status-Status}|' -- "$@" 2>/dev/null) || true
    for package; do
        [[ $installed == *"|$package installed|"* ]] || printf '%s\n' "$package"
    done
}

# Copies its input to the log $1 and shows how far the step $2 is, from the status lines of ninja
# and apt: one line that overwrites itself on a terminal, otherwise one for every tenth.
progress() {
    local log=$1 step=$2 line percent what tenth last=''
    while IFS= read -r line; do
        if [[ $line =~ ^(dl|pm)status:[^:]*:([0-9]+)[^:]*:(.*) ]]; then
            percent=${BASH_REMATCH[2]} what=${BASH_REMATCH[3]}
            [[ ${BASH_REMATCH[1]} == dl ]] && step='fetching packages' || step='installing packages'
        else
            printf '%s\n' "$line" >>"$log"
            [[ $line =~ ^\[([1-9][0-9]*)/([0-9]+)\]\ (.*) ]] || continue
            percent=$((100 * BASH_REMATCH[1] / BASH_REMATCH[2])) what=${BASH_REMATCH[3]}
        fi
        if [[ -t 2 ]]; then
            line="$step: $percent % $what"
            printf '\r\e[K%s' "${line:0:${COLUMNS:-80}-1}" >&2
        else
            tenth="$step $((percent / 10))"
            [[ $tenth == "$last" ]] || say "$step: $percent %"
            last=$tenth
        fi
    done
    [[ ! -t 2 ]] || printf '\r\e[K' >&2
}

# logged LOG STEP COMMAND...: runs the command with progress; a failure shows the log's end.
# No input: what is piped into ./run is for zel, and nothing here may ask.
logged() {
    local log=build/log/$1 step=$2
    shift 2
    mkdir -p build/log
    : >"$log"
    if ! "$@" </dev/null 2>&1 | progress "$log" "$step"; then
        tail -n 40 "$log" >&2
        say "$step failed; the whole log is $PWD/$log"
        return 1
    fi
}

# Installs those of the given packages that are missing.
install_packages() {
    local missing as_root=(env DEBIAN_FRONTEND=noninteractive)
    local install=(apt-get install -y --no-install-recommends)
    if ! command -v dpkg-query >/dev/null; then
        say "no Debian packages here; what has to be there: $*"
        return
    fi
    mapfile -t missing < <(missing_packages "$@")
    ((${#missing[@]})) || return 0

    if ((EUID)); then
        # Only sudo itself may ask, for the password, and only somebody who can answer.
        if sudo -n true 2>/dev/null || { [[ -t 0 && -t 2 ]] && sudo true; }; then
            as_root=(sudo "${as_root[@]}")
        else
            say "packages are missing; this command, run by an administrator, installs them:"
            say "    apt-get update && ${install[*]} ${missing[*]}"
            exit $set_up_failed
        fi
    fi
    say "installing what is missing (once, some minutes): ${missing[*]}"
    # A broken list of some other source is no reason to stop: the installation decides.
    logged update.log 'reading the package lists' "${as_root[@]}" apt-get update || true
    logged install.log 'installing packages' "${as_root[@]}" "${install[@]}" \
        -o APT::Status-Fd=1 -o DPkg::Lock::Timeout=300 "${missing[@]}" || exit $set_up_failed
}

# build PRESET PARTS [TARGETS]: configures where that is needed, then builds. PARTS are those of
# ZEL_TESTS, ZEL_PYTHON and ZEL_GUIDE that are wanted, or nothing: a build without them needs none of
# their packages, and the first one that wants them turns them on.
build() {
    local preset=$1 folder=build/$1 cache='' configure=() parts=() part
    [[ ! -f $folder/build.ninja ]] || cache=$(<"$folder/CMakeCache.txt")
    for part in $2; do
        parts+=("-D$part=ON")
        [[ $cache == *$'\n'"$part:BOOL=ON"$'\n'* ]] || configure=(cmake)
    done
    if [[ $cache != *$'\n'"CMAKE_HOME_DIRECTORY:INTERNAL=$PWD"$'\n'* ]]; then
        configure=(cmake --fresh) # nothing there yet, or the clone was moved
        for part in ZEL_TESTS ZEL_PYTHON ZEL_GUIDE; do
            [[ " $2 " == *" $part "* ]] || parts+=("-D$part=OFF")
        done
    fi
    if ((${#configure[@]})); then
        say "configuring $folder"
        logged "configure-$preset.log" configuring \
            "${configure[@]}" --preset "$preset" "${parts[@]}" || exit $set_up_failed
    fi
    logged "build-$preset.log" "building $preset" \
        cmake --build --preset "$preset" ${3+--target "${@:3}"} || exit $set_up_failed
}
