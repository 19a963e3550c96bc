# Debian packages by purpose, and the function that installs those that lack. Sourced by run.sh, test.sh and .ci/run.

packages_build="g++ cmake ninja-build ccache mold pkg-config qt6-base-dev qt6-base-dev-tools qt6-svg-dev libxcb1-dev libmpv-dev libicu-dev libhunspell-dev libpugixml-dev libkissfft-dev libgtest-dev libgmock-dev libbenchmark-dev"
packages_run="qt6-qpa-plugins qt6-wayland qt6-translations-l10n libqt6svg6 libmpv2 ffmpeg fonts-dejavu-core libhunspell-1.7-0 hunspell-en-us espeak-ng libkissfft-float131"
packages_display="fonts-vlgothic fonts-tlwg-loma-ttf xvfb xauth xdotool openbox x11-utils imagemagick dbus dbus-x11 at-spi2-core python3 python3-pyatspi"
packages_check="appstream desktop-file-utils clang-format clang-tidy clang libclang-rt-14-dev"

say() { printf '%s: %s\n' "${0##*/}" "$*"; }
fail() { printf '%s: %s\n' "${0##*/}" "$*" >&2; exit 1; }

# Installs what lacks of the packages named.
need_packages() {
  local missing="" name
  for name in "$@"; do
    case "$(dpkg-query -W -f='${Status}' "$name" 2>/dev/null)" in
      *"ok installed") ;;
      *) missing="$missing $name" ;;
    esac
  done
  [ -n "$missing" ] || return 0
  command -v apt-get >/dev/null 2>&1 ||
    fail "these packages are missing and there is no apt-get to install them:$missing"
  local as_root=""
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null 2>&1 ||
      fail "these packages are missing; install them as root, or install sudo:$missing"
    as_root="sudo"
  fi
  say "installing$missing"
  local quiet="-o Dpkg::Use-Pty=0 -o Dpkg::Progress-Fancy=0"
  # shellcheck disable=SC2086
  $as_root env DEBIAN_FRONTEND=noninteractive apt-get $quiet install -y --no-install-recommends $missing >"$log" 2>&1 || {
    say "reading the package lists first"
    $as_root apt-get update >"$log" 2>&1 || { tail -n 20 "$log" >&2; fail "apt-get update failed"; }
    # shellcheck disable=SC2086
    $as_root env DEBIAN_FRONTEND=noninteractive apt-get $quiet install -y --no-install-recommends $missing >"$log" 2>&1 || {
      tail -n 20 "$log" >&2
      fail "apt-get could not install:$missing"
    }
  }
}

# Configures and builds a preset, with ninja's own progress on the terminal. Further arguments are targets.
build_preset() {
  local preset=$1
  shift
  say "configuring the $preset build"
  cmake --preset "$preset" >"$log" 2>&1 || { tail -n 30 "$log" >&2; fail "cmake failed"; }
  say "building $preset"
  local targets=()
  [ $# -eq 0 ] || targets=(--target "$@")
  cmake --build --preset "$preset" "${targets[@]}" || fail "the build failed"
}

log=$(mktemp) || exit 1
trap 'rm -f "$log"' EXIT
