# Installation in two parts, as the Debian packages split it:
#   runtime  the host, the measuring tool, the platform library, the plug-in with
#            its code file and help, device files, examples, manuals and docs
#   dev      the public headers, the CMake package and the API reference
# The platform library and the plug-in live in a private folder of the library
# directory, shared by the host, the plug-in and the IDE that embeds it; each
# finds the library relative to its own place, so any prefix works.
set(ZV_PRIVATE_LIB_DIR ${CMAKE_INSTALL_LIBDIR}/zelvor)
set(ZV_COMPONENT_DIR ${ZV_PRIVATE_LIB_DIR}/components)
set(ZV_DATA_DIR ${CMAKE_INSTALL_DATADIR}/zelvor)
set(ZV_DOC_DIR ${CMAKE_INSTALL_DATADIR}/doc/zelvor-avr-pwm)
set(ZV_DEV_DOC_DIR ${CMAKE_INSTALL_DATADIR}/doc/zelvor-avr-pwm-dev)
set(ZV_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/ZelvorAvrPwm)

set_target_properties(zelvor-host PROPERTIES INSTALL_RPATH "$ORIGIN/../${ZV_PRIVATE_LIB_DIR}")
set_target_properties(AVR_PWM PROPERTIES INSTALL_RPATH "$ORIGIN/..")

install(TARGETS zelvor-platform EXPORT ZelvorAvrPwmTargets
  LIBRARY DESTINATION ${ZV_PRIVATE_LIB_DIR} COMPONENT runtime NAMELINK_COMPONENT dev)
install(TARGETS AVR_PWM LIBRARY DESTINATION ${ZV_COMPONENT_DIR} COMPONENT runtime)
install(FILES ${PROJECT_SOURCE_DIR}/component/AVR_PWM.c DESTINATION ${ZV_COMPONENT_DIR} COMPONENT runtime)
install(FILES ${CMAKE_BINARY_DIR}/lib/help/AVR_PWM.chm DESTINATION ${ZV_COMPONENT_DIR}/help COMPONENT runtime)
install(TARGETS zelvor-host EXPORT ZelvorAvrPwmTargets RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime)
if(TARGET pwm-measure)
  install(TARGETS pwm-measure RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime)
endif()
install(DIRECTORY ${PROJECT_SOURCE_DIR}/devices/ DESTINATION ${ZV_DATA_DIR}/devices
  COMPONENT runtime FILES_MATCHING PATTERN "*.zvd")
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples/ DESTINATION ${ZV_DATA_DIR}/examples
  COMPONENT runtime FILES_MATCHING PATTERN "*.zsc")

# Manuals and docs, compressed as Debian wants them (gzip -n: no name or time,
# so the packages build the same each time).
function(zv_gzip source output)
  add_custom_command(OUTPUT ${output} COMMAND gzip -9nc ${source} > ${output} DEPENDS ${source})
  set_property(GLOBAL APPEND PROPERTY ZV_GZIPPED ${output})
endfunction()
set(ZV_GZ ${CMAKE_BINARY_DIR}/packaging)
file(MAKE_DIRECTORY ${ZV_GZ})
foreach(page zelvor-host pwm-measure)
  if(page STREQUAL pwm-measure AND NOT TARGET pwm-measure)
    continue()
  endif()
  zv_gzip(${PROJECT_SOURCE_DIR}/docs/man/${page}.1 ${ZV_GZ}/${page}.1.gz)
  install(FILES ${ZV_GZ}/${page}.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT runtime)
endforeach()
zv_gzip(${PROJECT_SOURCE_DIR}/packaging/debian/changelog ${ZV_GZ}/changelog.gz)
get_property(ZV_GZIPPED GLOBAL PROPERTY ZV_GZIPPED)
add_custom_target(zv_install_files ALL DEPENDS ${ZV_GZIPPED})

foreach(pair "runtime;${ZV_DOC_DIR}" "dev;${ZV_DEV_DOC_DIR}")
  list(GET pair 0 part)
  list(GET pair 1 dir)
  install(FILES ${PROJECT_SOURCE_DIR}/packaging/debian/copyright ${ZV_GZ}/changelog.gz
    DESTINATION ${dir} COMPONENT ${part})
endforeach()
install(FILES ${PROJECT_SOURCE_DIR}/README.md ${PROJECT_SOURCE_DIR}/docs/script-reference.md
  DESTINATION ${ZV_DOC_DIR} COMPONENT runtime)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs/help/ DESTINATION ${ZV_DOC_DIR}/help
  COMPONENT runtime FILES_MATCHING PATTERN "*.html")
# Debian's registration of those pages; it names them under /usr, the package's prefix.
install(FILES ${PROJECT_SOURCE_DIR}/packaging/debian/zelvor-avr-pwm-help.doc-base
  DESTINATION ${CMAKE_INSTALL_DATADIR}/doc-base RENAME zelvor-avr-pwm-help COMPONENT runtime)
# The API reference, once api-docs has made it.
install(DIRECTORY ${CMAKE_BINARY_DIR}/docs/api/html/ DESTINATION ${ZV_DEV_DOC_DIR}/api
  COMPONENT dev OPTIONAL)

# The public contract: the host interface and the platform it is written in.
install(TARGETS zelvor-contract EXPORT ZelvorAvrPwmTargets COMPONENT dev)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/zelvor/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zelvor
  COMPONENT dev FILES_MATCHING PATTERN "*.h")
install(DIRECTORY ${PROJECT_SOURCE_DIR}/platform/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zelvor/platform
  COMPONENT dev FILES_MATCHING PATTERN "*.h")

include(CMakePackageConfigHelpers)
install(EXPORT ZelvorAvrPwmTargets NAMESPACE ZelvorAvrPwm:: DESTINATION ${ZV_CMAKE_DIR} COMPONENT dev)
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/ZelvorAvrPwmConfig.cmake.in
  ${CMAKE_BINARY_DIR}/ZelvorAvrPwmConfig.cmake
  INSTALL_DESTINATION ${ZV_CMAKE_DIR}
  PATH_VARS ZV_COMPONENT_DIR ZV_DATA_DIR ZV_DOC_DIR ZV_DEV_DOC_DIR)
write_basic_package_version_file(${CMAKE_BINARY_DIR}/ZelvorAvrPwmConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_BINARY_DIR}/ZelvorAvrPwmConfig.cmake ${CMAKE_BINARY_DIR}/ZelvorAvrPwmConfigVersion.cmake
  DESTINATION ${ZV_CMAKE_DIR} COMPONENT dev)

include(${CMAKE_CURRENT_LIST_DIR}/Package.cmake)
