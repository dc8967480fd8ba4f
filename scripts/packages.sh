# Debian packages for each purpose, and one function that installs what is missing. Sourced by ./run and ./test.

PACKAGES_BUILD="g++ cmake ninja-build pkg-config qt6-base-dev qt6-serialport-dev libgl-dev libpulse-dev libftdi1-dev libhamlib-dev
  libcups2-dev libfftw3-dev libutfcpp-dev libcsv-dev libmd-dev libcli11-dev nlohmann-json3-dev libdeflate-dev fp-utils"
# A display, a window manager, a sound server and an accessibility bus of the demo's own.
PACKAGES_DEMO="xvfb xauth openbox x11-utils imagemagick fonts-liberation dbus at-spi2-core gir1.2-atspi-2.0 python3
  python3-gi pulseaudio pulseaudio-utils"
PACKAGES_TEST="nec2c splat x11-apps libgtest-dev libgmock-dev libbenchmark-dev clang-tidy-16 clang-format locales xdotool wmctrl
  python3-xlib umockdev gir1.2-umockdev-1.0 libhamlib-utils libfaketime cups-daemon cups-client poppler-utils
  appstream desktop-file-utils librsvg2-bin man-db python3-pandas libreoffice-calc-nogui"
# What "./test --long" needs besides.
PACKAGES_LONG="clang-16 libclang-rt-16-dev python3-clang-16 libclang-common-16-dev weston qt6-wayland pipewire pipewire-pulse
  wireplumber"
# To look at the Debian package and to try it in a root of its own (./test --long).
PACKAGES_PACKAGE="lintian mmdebstrap dpkg-dev fakeroot file"

# need PACKAGE... : installs those that are not there; asks for root rights only then.
need() {
  local missing=() package
  for package in "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  local root=()
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || { echo "Please install as root: ${missing[*]}" >&2; return 1; }
    root=(sudo)
  fi
  echo "Installing: ${missing[*]}"
  "${root[@]}" apt-get update -qq
  "${root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}
