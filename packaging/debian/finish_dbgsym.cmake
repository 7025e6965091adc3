# Run by cpack after it made the packages: gives the debug-symbols package what
# Debian's own tools give theirs, which this CPack leaves out or gets wrong:
# its documentation folder as a link to the main package's (copyright and
# changelog), and md5sums with paths inside the package.
foreach(ddeb IN LISTS CPACK_PACKAGE_FILES)
  if(NOT ddeb MATCHES "/([^/]+)-dbgsym_[^/]+\\.ddeb$")
    continue()
  endif()
  set(main ${CMAKE_MATCH_1})
  set(tree ${CPACK_TOPLEVEL_DIRECTORY}/${main}-dbgsym-finish)
  file(REMOVE_RECURSE ${tree})
  execute_process(COMMAND dpkg-deb -R ${ddeb} ${tree} COMMAND_ERROR_IS_FATAL ANY)
  file(MAKE_DIRECTORY ${tree}/usr/share/doc)
  file(CREATE_LINK ${main} ${tree}/usr/share/doc/${main}-dbgsym SYMBOLIC)
  execute_process(COMMAND sh -c "find usr -type f | LC_ALL=C sort | xargs md5sum > DEBIAN/md5sums"
    WORKING_DIRECTORY ${tree} COMMAND_ERROR_IS_FATAL ANY)
  execute_process(COMMAND dpkg-deb --root-owner-group --build ${tree} ${ddeb}
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
  file(REMOVE_RECURSE ${tree})
endforeach()
