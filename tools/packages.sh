# The packages that building, running, testing and packing need, and how they are installed. Sourced by
# ./run, ./test and ./package.

engine_packages="g++ cmake ninja-build libarchive-dev nlohmann-json3-dev"
build_packages="$engine_packages qt6-base-dev qt6-webengine-dev qt6-image-formats-plugins libgl-dev fonts-dejavu-core"
test_packages="libgtest-dev xvfb xdotool imagemagick python3 python3-gi gir1.2-atspi-2.0 at-spi2-core dbus neovim librsvg2-bin desktop-file-utils appstream man-db"
lint_packages="clang-format clang-tidy"
bench_packages="libbenchmark-dev"
package_packages="python3 librsvg2-bin dpkg-dev file"
sanitizer_packages="clang libclang-rt-14-dev"

say() { printf '%s\n' "$*" >&2; }

# Installs what is missing of the packages given. Debian and Ubuntu, as root or through sudo.
need_packages() {
  command -v dpkg-query >/dev/null 2>&1 || {
    say "This is no Debian or Ubuntu system. Needed, under this system's names: $*"
    return 0
  }
  missing=""
  for package in "$@"; do
    dpkg-query -W -f='${Status}\n' "$package" 2>/dev/null | grep -q 'ok installed' ||
      missing="$missing $package"
  done
  [ -z "$missing" ] && return 0
  if [ "$(id -u)" = 0 ]; then
    as_root=""
  elif command -v sudo >/dev/null 2>&1; then
    as_root="sudo"
  else
    say "These packages are missing and there are no rights to install them:$missing"
    return 1
  fi
  say "Installing:$missing"
  $as_root env DEBIAN_FRONTEND=noninteractive apt-get update -qq >&2
  # shellcheck disable=SC2086
  $as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $missing >&2
}

# Configures and builds a preset: build_preset NAME [TARGET ...]
build_preset() {
  preset="$1"
  shift
  cmake --preset "$preset" >"/tmp/brindlemoor-configure-$$.log" 2>&1 || {
    cat "/tmp/brindlemoor-configure-$$.log" >&2
    rm -f "/tmp/brindlemoor-configure-$$.log"
    return 1
  }
  rm -f "/tmp/brindlemoor-configure-$$.log"
  if [ $# -gt 0 ]; then
    cmake --build "build/$preset" --target "$@" >&2
  else
    cmake --build "build/$preset" >&2
  fi
}
