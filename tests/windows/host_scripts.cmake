# Every golden script and example through zelvor-host.exe under Wine, after
# registering the server with regsvr32 in a private prefix: each must print
# what the Linux host prints, line for line, render lines aside (this host
# draws no pictures). The Linux host's output is the golden file of a test
# script, and for an example the output of LINUX_HOST when it is given.
#   cmake -DWINE=... -DWINESERVER=... -DPREFIX=... -DOCX=... -DHOST_EXE=...
#         -DSOURCE=... -DWORK=... [-DLINUX_HOST=...] -P host_scripts.cmake
set(ENV{WINEPREFIX} ${PREFIX})
set(ENV{WINEDEBUG} -all)
unset(ENV{DISPLAY}) # headless: nothing may wait on a window
file(MAKE_DIRECTORY ${PREFIX} ${WORK})

function(windows_path unix out)
  string(REPLACE "/" "\\" path "${unix}")
  set(${out} "Z:${path}" PARENT_SCOPE)
endfunction()

# The lines of a JSON Lines text without those of render commands.
function(without_render text out)
  string(REGEX REPLACE "[^\n]*\"cmd\": \"render [^\n]*\n" "" kept "${text}")
  set(${out} "${kept}" PARENT_SCOPE)
endfunction()

windows_path(${OCX} ocx)
execute_process(COMMAND ${WINE} regsvr32 /s ${ocx} RESULT_VARIABLE status)
if(NOT status EQUAL 0)
  execute_process(COMMAND ${WINESERVER} -k)
  message(FATAL_ERROR "regsvr32 ${ocx}: exit status ${status}")
endif()

file(GLOB scripts ${SOURCE}/tests/scripts/*.zsc ${SOURCE}/examples/*.zsc)
set(failures "")
foreach(script ${scripts})
  get_filename_component(name ${script} NAME_WE)
  get_filename_component(folder ${script} DIRECTORY)
  file(RELATIVE_PATH relative ${SOURCE} ${script})
  set(expected "")
  if(EXISTS ${folder}/${name}.jsonl)
    file(READ ${folder}/${name}.jsonl expected)
  elseif(LINUX_HOST)
    execute_process(COMMAND ${LINUX_HOST} run ${relative} WORKING_DIRECTORY ${SOURCE}
      OUTPUT_VARIABLE expected ERROR_QUIET)
  else()
    continue()
  endif()
  file(MAKE_DIRECTORY ${SOURCE}/out/scripts ${SOURCE}/out/examples)
  execute_process(COMMAND ${WINE} ${HOST_EXE} run ${relative} WORKING_DIRECTORY ${SOURCE}
    OUTPUT_VARIABLE actual ERROR_VARIABLE errors)
  without_render("${expected}" expected)
  without_render("${actual}" actual)
  if(NOT expected STREQUAL actual)
    file(WRITE ${WORK}/${name}.expected.jsonl "${expected}")
    file(WRITE ${WORK}/${name}.actual.jsonl "${actual}")
    execute_process(COMMAND diff -u ${WORK}/${name}.expected.jsonl ${WORK}/${name}.actual.jsonl
      OUTPUT_VARIABLE difference)
    string(APPEND failures "${relative} differs:\n${difference}${errors}\n")
  endif()
endforeach()

execute_process(COMMAND ${WINE} regsvr32 /s /u ${ocx})
execute_process(COMMAND ${WINESERVER} -k)
if(failures)
  message(FATAL_ERROR "${failures}")
endif()
