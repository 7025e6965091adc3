; The Windows installer of the AVR PWM control: AVR_PWM.ocx with its code file
; and help in a folder of the user's choosing, registered (class, type libraries
; and page), with an entry in the list of installed programs. The uninstaller
; unregisters the control and removes what this installed, nothing else.
;   makensis -DVERSION=4.0.0 -DFILES=<folder with AVR_PWM.ocx, AVR_PWM.c,
;            help\AVR_PWM.chm> -DOUTFILE=<setup.exe> AVR_PWM.nsi
; Silent: setup.exe /S [/D=folder], Uninstall.exe /S.
Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Zelvor_AVR_PWM"

Name "Zelvor AVR PWM ${VERSION}"
OutFile "${OUTFILE}"
InstallDir "$PROGRAMFILES64\Zelvor AVR PWM"
InstallDirRegKey HKLM "${UNINSTALL_KEY}" "InstallLocation"
RequestExecutionLevel admin
ShowInstDetails show

Page directory
Page instfiles
UninstPage uninstConfirm
UninstPage instfiles

Function .onInit
  SetRegView 64
FunctionEnd

Function un.onInit
  SetRegView 64
FunctionEnd

Section "AVR PWM control"
  SetOutPath "$INSTDIR"
  File "${FILES}\AVR_PWM.ocx"
  File "${FILES}\AVR_PWM.c"
  SetOutPath "$INSTDIR\help"
  File "${FILES}\help\AVR_PWM.chm"
  SetOutPath "$INSTDIR"

  ClearErrors
  RegDLL "$INSTDIR\AVR_PWM.ocx"
  IfErrors 0 registered
    MessageBox MB_ICONSTOP "AVR_PWM.ocx could not be registered." /SD IDOK
    Delete "$INSTDIR\AVR_PWM.ocx"
    Delete "$INSTDIR\AVR_PWM.c"
    Delete "$INSTDIR\help\AVR_PWM.chm"
    RMDir "$INSTDIR\help"
    RMDir "$INSTDIR"
    SetErrorLevel 2
    Quit
  registered:

  WriteUninstaller "$INSTDIR\Uninstall.exe"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayName" "Zelvor AVR PWM"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "Publisher" "Zelvor"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\AVR_PWM.ocx"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\Uninstall.exe"'
  WriteRegStr HKLM "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\Uninstall.exe" /S'
  WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoRepair" 1
SectionEnd

Section "Uninstall"
  UnRegDLL "$INSTDIR\AVR_PWM.ocx"
  Delete "$INSTDIR\AVR_PWM.ocx"
  Delete "$INSTDIR\AVR_PWM.c"
  Delete "$INSTDIR\help\AVR_PWM.chm"
  Delete "$INSTDIR\Uninstall.exe"
  ; Not /r: the folders go only when the user left nothing of theirs in them.
  RMDir "$INSTDIR\help"
  RMDir "$INSTDIR"
  DeleteRegKey HKLM "${UNINSTALL_KEY}"
SectionEnd
