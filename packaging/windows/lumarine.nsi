; The installer for Windows: for all users where an administrator runs it, else for whoever runs it. makensis is
; called by packaging/windows/installer, which defines VERSION and the other words in capitals.
;
; Silently: setup.exe /S [/AllUsers | /CurrentUser] [/Desktop] [/NoPath] [/D=FOLDER], where /D is the last and not quoted.
; Exit status: 0 done, 1 given up by the user, 3 Lumarine is running, 4 a newer version is installed, 5 not allowed,
; 6 Windows is too old.

Target amd64-unicode
Unicode true
SetCompressor /SOLID lzma
SetDateSave on
ManifestDPIAware true
ManifestSupportedOS Win10

Name "Lumarine"
OutFile "${FILE}"
BrandingText "Lumarine ${VERSION}"
ShowInstDetails hide
ShowUninstDetails hide

!define RUNNING 3
!define NEWER 4
!define FORBIDDEN 5
!define TOO_OLD 6

; Where Windows keeps its list of programs, and where Explorer looks for those that open a file.
!define ENTRY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Lumarine"
!define STARTED "Software\Microsoft\Windows\CurrentVersion\App Paths\Lumarine.exe"
!define OPENER "Software\Classes\Applications\Lumarine.exe"
!define KIND "Lumarine.Program"

!define MULTIUSER_EXECUTIONLEVEL Highest
!define MULTIUSER_MUI
!define MULTIUSER_INSTALLMODE_COMMANDLINE
!define MULTIUSER_INSTALLMODE_INSTDIR "Lumarine"
!define MULTIUSER_USE_PROGRAMFILES64
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_KEY "${ENTRY}"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_VALUENAME "InstallLocation"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_KEY "${ENTRY}"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_VALUENAME "DisplayVersion"
!define MULTIUSER_INSTALLMODE_FUNCTION TakeUpChoices
!include MultiUser.nsh
!include MUI2.nsh
!include FileFunc.nsh
!include LogicLib.nsh
!include Sections.nsh
!include WinVer.nsh
!include WordFunc.nsh
!include "${HERE}/path.nsh"

!define MUI_ICON "${WORK}/lumarine.ico"
!define MUI_UNICON "${WORK}/lumarine.ico"
!define MUI_WELCOMEFINISHPAGE_BITMAP "${WORK}/welcome.bmp"
!define MUI_UNWELCOMEFINISHPAGE_BITMAP "${WORK}/welcome.bmp"
!define MUI_HEADERIMAGE
!define MUI_HEADERIMAGE_RIGHT
!define MUI_HEADERIMAGE_BITMAP "${WORK}/header.bmp"
!define MUI_ABORTWARNING
!define MUI_COMPONENTSPAGE_SMALLDESC

!define MUI_WELCOMEPAGE_TEXT "$(TextWelcome)$\r$\n$\r$\n$_CLICK"
!insertmacro MUI_PAGE_WELCOME
!insertmacro MULTIUSER_PAGE_INSTALLMODE
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!define MUI_FINISHPAGE_RUN
!define MUI_FINISHPAGE_RUN_FUNCTION StartAsUser
!insertmacro MUI_PAGE_FINISH

!define MUI_UNCONFIRMPAGE_TEXT_TOP "$(TextStays)"
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES

!include "${HERE}/texts.nsh"

VIProductVersion "${FILE_VERSION}"
VIFileVersion "${FILE_VERSION}"
VIAddVersionKey /LANG=${LANG_ENGLISH} "CompanyName" "${PUBLISHER}"
VIAddVersionKey /LANG=${LANG_ENGLISH} "FileDescription" "Lumarine setup"
VIAddVersionKey /LANG=${LANG_ENGLISH} "FileVersion" "${FILE_VERSION}"
VIAddVersionKey /LANG=${LANG_ENGLISH} "LegalCopyright" "${PUBLISHER}"
VIAddVersionKey /LANG=${LANG_ENGLISH} "ProductName" "Lumarine"
VIAddVersionKey /LANG=${LANG_ENGLISH} "ProductVersion" "${VERSION}"

!define SHCNE_ASSOCCHANGED 0x08000000
!macro TellExplorer
  System::Call 'shell32::SHChangeNotify(i ${SHCNE_ASSOCCHANGED}, i 0, p 0, p 0)'
!macroend

; The folder that /D told, or nothing.
Var FolderTold

; A program that runs cannot be opened for writing, whoever started it. What is put there would be half of each version.
; Wants the folder on the stack.
!macro RefuseWhileRunning UN
Function ${UN}RefuseWhileRunning
  Exch $0
  Push "$0\lumarinectl.exe"
  Push "$0\Lumarine.exe"
  Call ${UN}RefuseWhileInUse
  Call ${UN}RefuseWhileInUse
  Pop $0
FunctionEnd
Function ${UN}RefuseWhileInUse
  Exch $0
  Push $1
  ${Do}
    ${IfNot} ${FileExists} "$0"
      ${ExitDo}
    ${EndIf}
    ClearErrors
    FileOpen $1 "$0" a
    ${IfNot} ${Errors}
      FileClose $1
      ${ExitDo}
    ${EndIf}
    ${If} ${Cmd} `MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$(TextRunning)" /SD IDCANCEL IDCANCEL`
      SetErrorLevel ${RUNNING}
      Quit
    ${EndIf}
  ${Loop}
  Pop $1
  Pop $0
FunctionEnd
!macroend
!insertmacro RefuseWhileRunning ""
!insertmacro RefuseWhileRunning "un."

Function RefuseOlder
  ReadRegStr $0 SHCTX "${ENTRY}" "DisplayVersion"
  ${VersionCompare} "$0" "${VERSION}" $1
  ${If} $1 = 1
  ${AndIf} ${Cmd} `MessageBox MB_YESNO|MB_DEFBUTTON2|MB_ICONEXCLAMATION "$(TextNewer)" /SD IDNO IDNO`
    SetErrorLevel ${NEWER}
    Quit
  ${EndIf}
FunctionEnd

; What the version before has put on the disk goes: the new one may have other files, or another folder. Its place in
; the start menu and in Explorer's lists stays, or Windows would forget who has pinned it.
Function RemoveFormer
  ReadRegStr $0 SHCTX "${ENTRY}" "InstallLocation"
  ${If} $0 == ""
  ${OrIfNot} ${FileExists} "$0\uninstall.exe"
    Return
  ${EndIf}
  Push $0
  Call RefuseWhileRunning
  ; In its own place, or it would end before its work is done.
  ExecWait '"$0\uninstall.exe" /S /Upgrade _?=$0'
  Delete "$0\uninstall.exe"
  RMDir "$0"
FunctionEnd

Section "Lumarine" SectionProgram
  SectionIn RO
  Call RefuseOlder
  Push $INSTDIR
  Call RefuseWhileRunning
  Call RemoveFormer

  SetOutPath "$INSTDIR"
  !include "${WORK}/put.nsh"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  CreateShortcut "$SMPROGRAMS\Lumarine.lnk" "$INSTDIR\Lumarine.exe"

  WriteRegStr SHCTX "${ENTRY}" "DisplayName" "Lumarine"
  WriteRegStr SHCTX "${ENTRY}" "DisplayVersion" "${VERSION}"
  WriteRegStr SHCTX "${ENTRY}" "DisplayIcon" "$INSTDIR\Lumarine.exe"
  WriteRegStr SHCTX "${ENTRY}" "Publisher" "${PUBLISHER}"
  WriteRegStr SHCTX "${ENTRY}" "URLInfoAbout" "${HOME_PAGE}"
  WriteRegStr SHCTX "${ENTRY}" "InstallLocation" "$INSTDIR"
  WriteRegStr SHCTX "${ENTRY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr SHCTX "${ENTRY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD SHCTX "${ENTRY}" "EstimatedSize" ${KILOBYTES}
  WriteRegDWORD SHCTX "${ENTRY}" "NoModify" 1
  WriteRegDWORD SHCTX "${ENTRY}" "NoRepair" 1

  ; By its name alone from "Run".
  WriteRegStr SHCTX "${STARTED}" "" "$INSTDIR\Lumarine.exe"

  ; Among those that can open XML. Which one does so unasked stays as it is.
  WriteRegStr SHCTX "${OPENER}" "FriendlyAppName" "Lumarine"
  WriteRegStr SHCTX "${OPENER}\SupportedTypes" ".xml" ""
  WriteRegStr SHCTX "${OPENER}\DefaultIcon" "" "$INSTDIR\Lumarine.exe,0"
  WriteRegStr SHCTX "${OPENER}\shell\open\command" "" '"$INSTDIR\Lumarine.exe" "%1"'
  WriteRegStr SHCTX "Software\Classes\${KIND}" "" "$(TextKind)"
  WriteRegStr SHCTX "Software\Classes\${KIND}\DefaultIcon" "" "$INSTDIR\Lumarine.exe,0"
  WriteRegStr SHCTX "Software\Classes\${KIND}\shell\open\command" "" '"$INSTDIR\Lumarine.exe" "%1"'
  WriteRegStr SHCTX "Software\Classes\.xml\OpenWithProgids" "${KIND}" ""
  !insertmacro TellExplorer
SectionEnd

Section "$(TextDesktop)" SectionDesktop
  CreateShortcut "$DESKTOP\Lumarine.lnk" "$INSTDIR\Lumarine.exe"
SectionEnd

Section "$(TextPath)" SectionPath
  Call EnterPath
SectionEnd

; What an earlier version had, and this one was told to leave out.
Section "-"
  ${IfNot} ${SectionIsSelected} ${SectionDesktop}
    Delete "$DESKTOP\Lumarine.lnk"
  ${EndIf}
  !insertmacro TellPath
SectionEnd

!insertmacro MUI_FUNCTION_DESCRIPTION_BEGIN
  !insertmacro MUI_DESCRIPTION_TEXT ${SectionProgram} "$(TextProgramTells)"
  !insertmacro MUI_DESCRIPTION_TEXT ${SectionDesktop} "$(TextDesktopTells)"
  !insertmacro MUI_DESCRIPTION_TEXT ${SectionPath} "$(TextPathTells)"
!insertmacro MUI_FUNCTION_DESCRIPTION_END

Function .onInit
  StrCpy $FolderTold $INSTDIR
  ${IfNot} ${AtLeastWin10}
    MessageBox MB_OK|MB_ICONSTOP "$(TextTooOld)" /SD IDOK
    SetErrorLevel ${TOO_OLD}
    Quit
  ${EndIf}
  ; A question would wait for an answer that nobody gives.
  ClearErrors
  ${GetParameters} $0
  ${GetOptions} $0 "/AllUsers" $1
  ${IfNot} ${Errors}
  ${AndIf} ${Silent}
    UserInfo::GetAccountType
    Pop $1
    ${If} $1 != "Admin"
      SetErrorLevel ${FORBIDDEN}
      Quit
    ${EndIf}
  ${EndIf}
  !insertmacro MULTIUSER_INIT
FunctionEnd

; Called whenever it is decided for whom to install. What an earlier version was told holds for this one too, unless
; it is told otherwise.
Function TakeUpChoices
  ${If} $FolderTold != ""
    StrCpy $INSTDIR $FolderTold
  ${EndIf}
  !insertmacro SelectSection ${SectionPath}
  !insertmacro UnselectSection ${SectionDesktop}
  ReadRegStr $0 SHCTX "${ENTRY}" "DisplayVersion"
  ${If} $0 != ""
    ReadRegStr $0 SHCTX "${ENTRY}" "${IN_PATH}"
    ${If} $0 == ""
      !insertmacro UnselectSection ${SectionPath}
    ${EndIf}
    ${If} ${FileExists} "$DESKTOP\Lumarine.lnk"
      !insertmacro SelectSection ${SectionDesktop}
    ${EndIf}
  ${EndIf}
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/Desktop" $1
  ${IfNot} ${Errors}
    !insertmacro SelectSection ${SectionDesktop}
  ${EndIf}
  ClearErrors
  ${GetOptions} $0 "/NoPath" $1
  ${IfNot} ${Errors}
    !insertmacro UnselectSection ${SectionPath}
  ${EndIf}
FunctionEnd

; Explorer starts it with the user's rights, and not with those that the installer was given.
Function StartAsUser
  Exec '"$WINDIR\explorer.exe" "$INSTDIR\Lumarine.exe"'
FunctionEnd

Section "Uninstall"
  Push $INSTDIR
  Call un.RefuseWhileRunning
  Call un.LeavePath
  !include "${WORK}/take.nsh"
  Delete "$INSTDIR\uninstall.exe"
  SetOutPath "$TEMP"
  RMDir "$INSTDIR"
  ClearErrors
  ${GetParameters} $0
  ${GetOptions} $0 "/Upgrade" $1
  ${If} ${Errors}
    Delete "$SMPROGRAMS\Lumarine.lnk"
    Delete "$DESKTOP\Lumarine.lnk"
    DeleteRegKey SHCTX "${ENTRY}"
    DeleteRegKey SHCTX "${STARTED}"
    DeleteRegKey SHCTX "${OPENER}"
    DeleteRegKey SHCTX "Software\Classes\${KIND}"
    DeleteRegValue SHCTX "Software\Classes\.xml\OpenWithProgids" "${KIND}"
    ; What may have been made for us, and holds nothing else.
    DeleteRegKey /ifempty SHCTX "Software\Classes\.xml\OpenWithProgids"
    DeleteRegKey /ifempty SHCTX "Software\Classes\.xml"
    ${If} $MultiUser.InstallMode == "CurrentUser"
      DeleteRegKey /ifempty SHCTX "Software\Classes\Applications"
      DeleteRegKey /ifempty SHCTX "Software\Microsoft\Windows\CurrentVersion\App Paths"
      DeleteRegKey /ifempty SHCTX "Software\Microsoft\Windows\CurrentVersion\Uninstall"
    ${EndIf}
    !insertmacro TellExplorer
    !insertmacro TellPath
  ${EndIf}
SectionEnd

; There may be one installation for all and another one for this user. The folder tells which is to go.
Function un.onInit
  StrCpy $R0 $INSTDIR
  !insertmacro MULTIUSER_UNINIT
  ReadRegStr $R1 HKCU "${ENTRY}" "InstallLocation"
  ${If} $R1 == $R0
    Call un.MultiUser.InstallMode.CurrentUser
  ${ElseIf} $MultiUser.Privileges != "Admin"
    ${If} ${Silent}
      SetErrorLevel ${FORBIDDEN}
    ${Else}
      ExecShell "runas" "$R0\uninstall.exe"
    ${EndIf}
    Quit
  ${EndIf}
  StrCpy $INSTDIR $R0
FunctionEnd
