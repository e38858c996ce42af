# The Debian package, which CPack builds from all installed files.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME glintboard-agent)
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/package)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
# A build for another prefix has the settings below that prefix.
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_SOURCE_DIR}/move_settings.cmake)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_VERSION ${GLINTBOARD_DEBIAN_VERSION})
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "${GLINTBOARD_MAINTAINER}")
if(GLINTBOARD_WEBSITE)
  set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "${GLINTBOARD_WEBSITE}")
endif()
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "turns a phone into a deck of keys for this computer")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Tap a key on the phone that lies beside the keyboard: an application opens or
comes to the front, the volume changes, or a command of yours runs. The phone
pairs by scanning a code on the screen.
.
The package contains the agent with its deck editor, a phone on the command
line (glintboard-phone), and the tool that manages the commands of keys
(shortcuts).")

# dpkg-shlibdeps finds the libraries of the programs, but not the modules that QML and Qt load. The
# plugin that reads SVG icons was part of libqt6svg6 before 6.7.2-5.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qml6-module-qtqml, qml6-module-qtqml-models, \
qml6-module-qtqml-workerscript, qml6-module-qtquick, qml6-module-qtquick-templates, \
qml6-module-qtquick-window, qt6-svg-plugins | libqt6svg6 (<< 6.7.2-5~)")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "avahi-daemon, default-dbus-session-bus | dbus-session-bus, \
gnome-keyring | libkf5wallet-bin | keepassxc, hicolor-icon-theme, pipewire-pulse | pulseaudio, \
qt6-wayland")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "firewalld | ufw")

file(WRITE ${CMAKE_CURRENT_BINARY_DIR}/conffiles
"/etc/ufw/applications.d/glintboard-agent
/etc/xdg/autostart/org.glintboard.Agent.desktop
")
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA ${CMAKE_CURRENT_BINARY_DIR}/conffiles)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
include(CPack)
