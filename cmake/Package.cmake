# Debian packages (cpack in the build folder, or make package):
#   zelvor-avr-pwm          the runtime part; dependencies from dpkg-shlibdeps
#   zelvor-avr-pwm-dev      the headers and the CMake package
#   zelvor-avr-pwm-dbgsym   the debug information stripped from the runtime binaries
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME zelvor-avr-pwm)
set(CPACK_PACKAGE_VENDOR "Zelvor")
set(CPACK_PACKAGE_CONTACT "Zelvor developers <dev@zelvor.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/package)
set(CPACK_COMPONENTS_ALL runtime dev)
set(CPACK_DEB_COMPONENT_INSTALL ON)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION electronics)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_RUNTIME_DEBUGINFO_PACKAGE ON)
set(CPACK_POST_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/packaging/debian/finish_dbgsym.cmake)

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME zelvor-avr-pwm)
# The host writes C programs for the chip; building and checking them on the
# simulated chip takes the AVR toolchain.
set(CPACK_DEBIAN_RUNTIME_PACKAGE_RECOMMENDS "gcc-avr, binutils-avr, avr-libc")
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION
  "AVR PWM component for a flowchart microcontroller IDE
The AVR PWM component configures, simulates and writes the C code of the
pulse-width modulation outputs of an AVR microcontroller. This package holds
the component as a plug-in with its code file and help, the scriptable
reference host zelvor-host (command line and desktop), the pwm-measure tool
that times the PWM pins of a program on a simulated chip, device files and
example scripts.")

set(CPACK_DEBIAN_DEV_PACKAGE_NAME zelvor-avr-pwm-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS "zelvor-avr-pwm (= ${PROJECT_VERSION})")
set(CPACK_COMPONENT_DEV_DESCRIPTION
  "AVR PWM component for a flowchart microcontroller IDE - development files
The headers of the component's host interface and of the platform library it
is written in, and a CMake package (find_package(ZelvorAvrPwm)) for an IDE
that embeds the AVR PWM component.")

include(CPack)
