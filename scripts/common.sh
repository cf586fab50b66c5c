# Sourced by the other scripts: changes to the repository's root and defines their common functions.
# shellcheck shell=bash

root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
# This script, whatever folder it was called from.
# shellcheck disable=SC2034 # those that source this use it
script="$(cd "$(dirname "$0")" && pwd)/${0##*/}"
cd "$root" || exit

say() { printf '%s: %s\n' "scripts/${0##*/}" "$*"; }
fail() {
  printf '%s: %s\n' "scripts/${0##*/}" "$*" >&2
  exit 1
}

# usage SCRIPT: the comment at a script's head is its help.
usage() { sed -n '2,/^[^#]/ s/^# \{0,1\}//p' "$1"; }

# Tracked files and new ones that are not ignored; in an exported tree without git, all but the builds.
repository_files() {
  if git -c safe.directory='*' rev-parse --is-inside-work-tree >/dev/null 2>&1; then
    git -c safe.directory='*' ls-files --cached --others --exclude-standard -- "$@" |
      while IFS= read -r file; do [[ ! -f $file ]] || printf '%s\n' "$file"; done
  else
    local patterns=() pattern
    for pattern in "$@"; do patterns+=(-o -name "$pattern"); done
    find . -path ./build -prune -o -type f \( "${patterns[@]:1}" \) -print | sed 's|^\./||'
  fi
}

# llvm PROGRAM: the name of clang++, clang-tidy … in the version that scripts/bootstrap installs: the first
# version of which the standard library is there too.
llvm() {
  local version versions
  read -ra versions <scripts/packages/llvm-versions
  for version in "${versions[@]}"; do
    if command -v "$1-$version" >/dev/null &&
      { [[ $1 != clang++ ]] || [[ -e /usr/lib/llvm-$version/include/c++/v1/version ]]; }; then
      echo "$1-$version"
      return
    fi
  done
  # Distributions that have one version only give its programs no number.
  if command -v "$1" >/dev/null; then
    echo "$1"
    return
  fi
  fail "there is no $1 of any version in scripts/packages/llvm-versions"
}

# is_configured PRESET OPTION...: whether that build is up to date with the presets, and with NAME=VALUE.
is_configured() {
  local folder=build/$1 option
  shift
  # Ninja configures again by itself when a CMakeLists.txt changes or a file is new, but it does not know the
  # presets; and Ninja never runs for the preset check.
  [[ $folder != build/check ]] || return
  [[ $folder/build.ninja -nt CMakePresets.json ]] || return
  for option in "$@"; do
    grep -q "^${option%%=*}:[A-Z]*=\(.*/\)\?${option#*=}\$" "$folder/CMakeCache.txt" || return
  done
}

# configure PRESET: prints nothing when it succeeds, all output when it fails. The entries of
# configure_options, NAME=VALUE, override the preset.
configure_options=()
configure() {
  local preset=$1 log options
  mkdir -p "build/$preset"
  log="build/$preset/configure.log"
  options=("${configure_options[@]}")
  case $preset in
    debug | clang | aligned | fuzz) options+=("CMAKE_CXX_COMPILER=$(llvm clang++)") ;;
  esac
  if ! is_configured "$preset" "${options[@]}"; then
    if ! cmake --preset "$preset" "${options[@]/#/-D}" >"$log" 2>&1 </dev/null; then
      cat "$log" >&2
      fail "cannot configure the preset $preset"
    fi
  fi
}

# configure_and_build PRESET [NINJA ARGUMENT...]: prints nothing when it succeeds, all output when it fails.
configure_and_build() {
  local preset=$1
  shift
  configure "$preset"
  # Test programs of the window are started once after linking, to list their tests.
  QT_QPA_PLATFORM="${QT_QPA_PLATFORM:-offscreen}" \
    cmake --build --preset "$preset" -- "$@" </dev/null ||
    fail "cannot build the preset $preset"
}
