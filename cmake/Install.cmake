# Installation: the plug-in with its code file and help in lib/zelvor/components,
# the host in bin, device files and examples in share/zelvor, and a CMake
# package (find_package(ZelvorAvrPwm)) with the host interface and platform.
set(ZV_COMPONENT_DIR ${CMAKE_INSTALL_LIBDIR}/zelvor/components)

install(TARGETS zelvor-platform EXPORT ZelvorAvrPwmTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime)
install(TARGETS AVR_PWM LIBRARY DESTINATION ${ZV_COMPONENT_DIR} COMPONENT runtime)
install(FILES ${PROJECT_SOURCE_DIR}/component/AVR_PWM.c DESTINATION ${ZV_COMPONENT_DIR} COMPONENT runtime)
install(FILES ${CMAKE_BINARY_DIR}/lib/help/AVR_PWM.chm DESTINATION ${ZV_COMPONENT_DIR}/help COMPONENT runtime)
install(TARGETS zelvor-host RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime)
if(TARGET pwm-measure)
  install(TARGETS pwm-measure RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime)
endif()
install(DIRECTORY ${PROJECT_SOURCE_DIR}/devices/ DESTINATION ${CMAKE_INSTALL_DATADIR}/zelvor/devices
  COMPONENT runtime FILES_MATCHING PATTERN "*.zvd")
# The help pages again as HTML, for the desktop window's help browser.
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs/help/ DESTINATION ${CMAKE_INSTALL_DATADIR}/zelvor/help
  COMPONENT runtime FILES_MATCHING PATTERN "*.html")
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples/ DESTINATION ${CMAKE_INSTALL_DATADIR}/zelvor/examples
  COMPONENT runtime)

# Headers an IDE needs to embed the component: the host interface and the platform.
install(DIRECTORY ${PROJECT_SOURCE_DIR}/platform/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zelvor/platform
  COMPONENT runtime FILES_MATCHING PATTERN "*.h")
install(TARGETS zelvor-contract EXPORT ZelvorAvrPwmTargets)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/zelvor/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zelvor
  COMPONENT runtime FILES_MATCHING PATTERN "*.h")

include(CMakePackageConfigHelpers)
set(ZV_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/ZelvorAvrPwm)
install(EXPORT ZelvorAvrPwmTargets NAMESPACE ZelvorAvrPwm:: DESTINATION ${ZV_CMAKE_DIR} COMPONENT runtime)
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/ZelvorAvrPwmConfig.cmake.in
  ${CMAKE_BINARY_DIR}/ZelvorAvrPwmConfig.cmake
  INSTALL_DESTINATION ${ZV_CMAKE_DIR}
  PATH_VARS ZV_COMPONENT_DIR)
write_basic_package_version_file(${CMAKE_BINARY_DIR}/ZelvorAvrPwmConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_BINARY_DIR}/ZelvorAvrPwmConfig.cmake ${CMAKE_BINARY_DIR}/ZelvorAvrPwmConfigVersion.cmake
  DESTINATION ${ZV_CMAKE_DIR} COMPONENT runtime)

# A Debian package of all of it.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME zelvor-avr-pwm)
set(CPACK_PACKAGE_VENDOR "Zelvor")
set(CPACK_PACKAGE_CONTACT "Zelvor developers <dev@zelvor.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "AVR PWM component for a flowchart microcontroller IDE, with its reference host")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libqt6widgets6, libqt6gui6, libqt6core6")
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/package)
include(CPack)
