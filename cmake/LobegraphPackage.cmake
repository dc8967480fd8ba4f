# cpack makes a Debian package of what is installed.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME lobegraph)
set(CPACK_PACKAGE_CONTACT "Lobegraph developers <developers@lobegraph.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "draw the polar diagram of an antenna while it turns")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"An antenna turns once on its rotator; Lobegraph listens to the receiver and
draws the antenna's polar diagram while it turns. 360 readings make a turn.
Afterwards the beam is turned to the top, the -3 dB points are marked, and
beamwidth and an estimate of the gain are shown.
.
The level comes from the sound input, from a serial dB meter or power meter,
or from a meter program of your own. Readings can be paced by the rotator.
.
The package brings companions: lobegraph-cli (figures, pictures and other
formats for scripts), lobegraph-meter (the S-meter of a radio as an input) and
lobegraph-bench (an antenna to try it with).")
set(CPACK_DEBIAN_PACKAGE_SECTION hamradio)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "xdg-utils, pulseaudio | pipewire-pulse")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "libhamlib-utils, kchmviewer, qt6-wayland")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_STRIP_FILES ON)
include(CPack)
