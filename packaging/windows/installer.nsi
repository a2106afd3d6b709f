; The installer for one user: no administrator, nothing outside the user's own folders and registry.
;
;   makensis -DVERSION=0.1.0 -DSOURCE=... -DINSTALLS=... -DREMOVALS=... -DICON=... -DOUTPUT=...
;     installer.nsi
;
; SOURCE holds what is installed. INSTALLS and REMOVALS are files of instructions for each of its
; files, made of the macros InstallFile and InstallUsersFile, RemoveFile and RemoveUsersFile.
; The installer answers to /S (asks nothing), /D=FOLDER (last), /STARTUP (start with the computer);
; the uninstaller to /S and /SETTINGS (delete the settings too).

Unicode true
Target amd64-unicode
!include MUI2.nsh
!include FileFunc.nsh
!include LogicLib.nsh
!include Win\COM.nsh

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Tidewarden"
!define RUN_KEY "Software\Microsoft\Windows\CurrentVersion\Run"
!define APPROVED_KEY "Software\Microsoft\Windows\CurrentVersion\Explorer\StartupApproved\Run"
!define SETTINGS_KEY "Software\Tideward"
; By their full names, so that copies in several folders do not meet.
!define TIMES_KEY "Software\Tideward Setup"

Name "Tidewarden"
OutFile "${OUTPUT}"
RequestExecutionLevel user
InstallDir "$LOCALAPPDATA\Programs\Tidewarden"
InstallDirRegKey HKCU "${UNINSTALL_KEY}" "InstallLocation"
SetCompressor /SOLID lzma
ManifestDPIAware true
BrandingText "Tidewarden ${VERSION}"

VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "Tidewarden"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "FileDescription" "Tidewarden Setup"
VIAddVersionKey "CompanyName" "The Tidewarden authors"
VIAddVersionKey "LegalCopyright" "Copyright (c) 2026 The Tidewarden authors; MIT License"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_ABORTWARNING
!define MUI_FINISHPAGE_RUN "$INSTDIR\tidewarden.exe"
!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

; A running program cannot be replaced: asks to close it, and gives up when nobody is there to ask.
!macro RefuseWhileRunning name action
  ${Do}
    ClearErrors
    ${IfNot} ${FileExists} "$INSTDIR\${name}.exe"
      ${ExitDo}
    ${EndIf}
    FileOpen $0 "$INSTDIR\${name}.exe" a
    ${IfNot} ${Errors}
      FileClose $0
      ${ExitDo}
    ${EndIf}
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION \
      "${name}.exe is running or cannot be replaced. Please close it, then try again." \
      /SD IDCANCEL IDRETRY +3
    SetErrorLevel 2
    Abort "Not ${action}: ${name}.exe is running or cannot be replaced."
  ${Loop}
!macroend

!macro RefuseWhileAnyRuns action
  !insertmacro RefuseWhileRunning "tidewarden" "${action}"
  !insertmacro RefuseWhileRunning "customizer" "${action}"
  !insertmacro RefuseWhileRunning "twdocs" "${action}"
  !insertmacro RefuseWhileRunning "tidewarden-cli" "${action}"
!macroend

!macro InstallFile folder name
  SetOutPath "$INSTDIR\${folder}"
  File "${SOURCE}/${folder}${name}"
!macroend

!macro RemoveFile folder name
  Delete "$INSTDIR\${folder}${name}"
!macroend

; Files that a user may have made their own (quotes, the look, the bell, the example, in which
; somebody may keep their events) are known by their time: it is kept in the registry, and one that
; has changed since is left alone from then on.
!macro IfChangedByUser name
  ReadRegStr $0 HKCU "${TIMES_KEY}" "$INSTDIR\${name}"
  GetFileTime "$INSTDIR\${name}" $1 $2
  ${If} ${FileExists} "$INSTDIR\${name}"
  ${AndIf} $0 != "$1 $2"
!macroend

!macro InstallUsersFile folder name
  !insertmacro IfChangedByUser "${folder}${name}"
    DetailPrint "Kept as it is: ${folder}${name}"
  ${Else}
    !insertmacro InstallFile "${folder}" "${name}"
    GetFileTime "$INSTDIR\${folder}${name}" $1 $2
    WriteRegStr HKCU "${TIMES_KEY}" "$INSTDIR\${folder}${name}" "$1 $2"
  ${EndIf}
!macroend

!macro RemoveUsersFile folder name
  !insertmacro IfChangedByUser "${folder}${name}"
    DetailPrint "Kept as it is: ${folder}${name}"
  ${Else}
    !insertmacro RemoveFile "${folder}" "${name}"
  ${EndIf}
  DeleteRegValue HKCU "${TIMES_KEY}" "$INSTDIR\${folder}${name}"
!macroend

; The program that a shortcut starts, in $0; empty when there is none.
!macro ReadShortcut shortcut
  StrCpy $0 ""
  !insertmacro ComHlpr_CreateInProcInstance ${CLSID_ShellLink} ${IID_IShellLink} r1 ""
  ${If} $1 P<> 0
    ${IUnknown::QueryInterface} $1 '("${IID_IPersistFile}", .r2)'
    ${If} $2 P<> 0
      ${IPersistFile::Load} $2 '("${shortcut}", 0) .r3'
      ${If} $3 = 0
        ; 4: as it is stored, whether or not the program is still there.
        ${IShellLink::GetPath} $1 '(.r0, ${NSIS_MAX_STRLEN}, 0, 4)'
      ${EndIf}
      ${IUnknown::Release} $2 ""
    ${EndIf}
    ${IUnknown::Release} $1 ""
  ${EndIf}
!macroend

Section "Tidewarden" SectionProgram
  SectionIn RO
  !insertmacro RefuseWhileAnyRuns "installed"
  !include "${INSTALLS}"
  SetOutPath "$INSTDIR"
  WriteUninstaller "$INSTDIR\uninstall.exe"

  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayName" "Tidewarden"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\tidewarden.exe"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "Publisher" "The Tidewarden authors"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoRepair" 1
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  IntFmt $0 "0x%08X" $0
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "EstimatedSize" "$0"
SectionEnd

Section "Entry in the Start menu" SectionMenu
  CreateShortCut "$SMPROGRAMS\Tidewarden.lnk" "$INSTDIR\tidewarden.exe"
SectionEnd

Section /o "Start with the computer" SectionStartup
  WriteRegStr HKCU "${RUN_KEY}" "Tidewarden" '"$INSTDIR\tidewarden.exe"'
  ; The task manager may have noted earlier that the entry is switched off.
  DeleteRegValue HKCU "${APPROVED_KEY}" "Tidewarden"
SectionEnd

!insertmacro MUI_FUNCTION_DESCRIPTION_BEGIN
  !insertmacro MUI_DESCRIPTION_TEXT ${SectionProgram} "The date reminder and all that it needs."
  !insertmacro MUI_DESCRIPTION_TEXT ${SectionMenu} "Tidewarden in the Start menu."
  !insertmacro MUI_DESCRIPTION_TEXT ${SectionStartup} "Shows what is coming each time you log in."
!insertmacro MUI_FUNCTION_DESCRIPTION_END

Function .onInit
  ${GetParameters} $R0
  ClearErrors
  ${GetOptions} $R0 "/STARTUP" $R1
  ${IfNot} ${Errors}
    !insertmacro SelectSection ${SectionStartup}
  ${EndIf}
FunctionEnd

; Takes away what was installed and nothing else: the events, their backups and every other file of
; the user in the folder stay, and so the folder itself while it holds any.
Section "Uninstall"
  !insertmacro RefuseWhileAnyRuns "removed"

  StrCpy $R2 "keep"
  ${GetParameters} $R0
  ClearErrors
  ${GetOptions} $R0 "/SETTINGS" $R1
  ${IfNot} ${Errors}
    StrCpy $R2 "delete"
  ${Else}
    ; Where they are is known to the settings alone, which may be about to go.
    ReadRegStr $0 HKCU "${SETTINGS_KEY}\Settings" "Path"
    ${If} $0 == ""
      StrCpy $0 "."
    ${Else}
      StrCpy $0 ":$\n$\n$0"
    ${EndIf}
    MessageBox MB_YESNO|MB_ICONQUESTION|MB_DEFBUTTON2 \
      "Delete your settings too? Your events are kept in any case$0" /SD IDNO IDNO +2
    StrCpy $R2 "delete"
  ${EndIf}

  !include "${REMOVALS}"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  DeleteRegKey /ifempty HKCU "${TIMES_KEY}"

  ; Only entries that lead here: another copy may have its own.
  !insertmacro ReadShortcut "$SMPROGRAMS\Tidewarden.lnk"
  ${If} $0 == "$INSTDIR\tidewarden.exe"
    Delete "$SMPROGRAMS\Tidewarden.lnk"
  ${EndIf}
  ; Whatever the entry adds to the program, and with or without quotes.
  ReadRegStr $0 HKCU "${RUN_KEY}" "Tidewarden"
  ExpandEnvStrings $0 $0
  StrCpy $1 " "
  StrCpy $2 $0 1
  ${If} $2 == '"'
    StrCpy $1 '"'
    StrCpy $0 $0 "" 1
  ${EndIf}
  StrLen $2 "$INSTDIR\tidewarden.exe$1"
  StrCpy $0 "$0$1" $2
  ${If} $0 == "$INSTDIR\tidewarden.exe$1"
    DeleteRegValue HKCU "${RUN_KEY}" "Tidewarden"
    ; Where the task manager notes that it has switched the entry off.
    DeleteRegValue HKCU "${APPROVED_KEY}" "Tidewarden"
  ${EndIf}
  ReadRegStr $0 HKCU "${UNINSTALL_KEY}" "InstallLocation"
  ${If} $0 == $INSTDIR
    DeleteRegKey HKCU "${UNINSTALL_KEY}"
  ${EndIf}
  ${If} $R2 == "delete"
    DeleteRegKey HKCU "${SETTINGS_KEY}"
    ; The page that was printed last, and folders that hold nothing of the user's.
    Delete "$LOCALAPPDATA\Tideward\print.htm"
    RMDir "$LOCALAPPDATA\Tideward"
    RMDir "$APPDATA\Tideward"
    SetShellVarContext all
    Delete "$APPDATA\print.htm"
    SetShellVarContext current
  ${EndIf}
SectionEnd
