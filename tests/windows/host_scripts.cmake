# Every golden script and example through zelvor-host.exe under Wine, after
# registering the server with regsvr32 in a private prefix: each must print
# what the Linux host prints, line for line, render lines (this host draws no
# pictures) and commands on Unix device files aside. The Linux host's output is the golden file of a test
# script, and for an example the output of LINUX_HOST when it is given. A
# script with a VBScript twin (tests/windows/NAME.vbs) must also answer what
# the twin prints under cscript, call for call.
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

# The lines of a JSON Lines text without those of render commands and of
# commands on Unix device files (/dev/...), which Windows does not have.
function(without_render text out)
  string(REGEX REPLACE "[^\n]*\"cmd\": \"(render |[a-z]+ /dev/)[^\n]*\n" "" kept "${text}")
  set(${out} "${kept}" PARENT_SCOPE)
endfunction()

# Splits a text into a list of its lines; a ';' in a line stays in it.
function(lines_of text out)
  string(REPLACE "\r" "" text "${text}")
  string(REPLACE ";" "\\;" text "${text}")
  string(REGEX REPLACE "\n$" "" text "${text}")
  string(REPLACE "\n" ";" text "${text}")
  set(${out} "${text}" PARENT_SCOPE)
endfunction()

# The runner's answers as the VBScript twin prints them: "ok", "ok TYPE VALUE"
# or "error NUMBER DESCRIPTION", one a command but create.
function(twin_answers jsonl out)
  set(type_I2 Integer)
  set(type_I4 Long)
  set(type_UI1 Byte)
  set(type_BOOL Boolean)
  set(type_BSTR String)
  set(type_R4 Single)
  set(type_R8 Double)
  set(answers "")
  lines_of("${jsonl}" lines)
  foreach(line IN LISTS lines)
    string(JSON cmd GET "${line}" cmd)
    if(cmd STREQUAL "create")
      continue()
    endif()
    string(JSON ok GET "${line}" ok)
    string(JSON vt ERROR_VARIABLE none GET "${line}" result vt)
    if(NOT ok)
      string(JSON number ERROR_VARIABLE none GET "${line}" error number)
      string(JSON description ERROR_VARIABLE none GET "${line}" error description)
      string(APPEND answers "error ${number} ${description}\n")
    elseif(NOT vt OR vt STREQUAL "EMPTY")
      string(APPEND answers "ok\n")
    else()
      string(JSON value GET "${line}" result v)
      string(APPEND answers "ok ${type_${vt}} ${value}\n")
    endif()
  endforeach()
  string(REPLACE "\r" "" answers "${answers}")
  set(${out} "${answers}" PARENT_SCOPE)
endfunction()

# Adds to failures when two texts differ, with their difference.
function(compare what want got)
  if(NOT want STREQUAL got)
    file(WRITE ${WORK}/want.txt "${want}")
    file(WRITE ${WORK}/got.txt "${got}")
    execute_process(COMMAND diff -u ${WORK}/want.txt ${WORK}/got.txt OUTPUT_VARIABLE difference)
    set(failures "${failures}${what}:\n${difference}${errors}\n" PARENT_SCOPE)
  endif()
endfunction()

windows_path(${OCX} ocx)
execute_process(COMMAND ${WINE} regsvr32 /s ${ocx} RESULT_VARIABLE status)
if(NOT status EQUAL 0)
  execute_process(COMMAND ${WINESERVER} -k)
  message(FATAL_ERROR "regsvr32 ${ocx}: exit status ${status}")
endif()

file(GLOB scripts ${SOURCE}/tests/scripts/*.zsc ${SOURCE}/examples/*.zsc)
set(failures "")
# The scripts write their files there, on both hosts.
file(MAKE_DIRECTORY ${SOURCE}/out/scripts ${SOURCE}/out/examples)
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
  execute_process(COMMAND ${WINE} ${HOST_EXE} run ${relative} WORKING_DIRECTORY ${SOURCE}
    OUTPUT_VARIABLE actual ERROR_VARIABLE errors)
  without_render("${expected}" expected)
  without_render("${actual}" actual)
  compare("${relative} differs from the Linux host" "${expected}" "${actual}")
  if(EXISTS ${SOURCE}/tests/windows/${name}.vbs)
    windows_path(${SOURCE}/tests/windows/${name}.vbs twin)
    execute_process(COMMAND ${WINE} cscript //nologo ${twin} WORKING_DIRECTORY ${SOURCE}
      OUTPUT_VARIABLE said ERROR_VARIABLE errors)
    string(REPLACE "\r" "" said "${said}")
    twin_answers("${actual}" answered)
    compare("${relative} answers otherwise than ${name}.vbs" "${said}" "${answered}")
  endif()
endforeach()

execute_process(COMMAND ${WINE} regsvr32 /s /u ${ocx})
execute_process(COMMAND ${WINESERVER} -k)
if(failures)
  message(FATAL_ERROR "${failures}")
endif()
