; The search path for programs, which may be longer than the strings of NSIS: it stays in memory of the system's and is
; never a string of ours. EnterPath adds $INSTDIR at its end, un.LeavePath takes it out again, where it was added.

; A value of ENTRY: that it was us who added it.
!define IN_PATH "InPath"

!define REG_EXPAND_SZ 2
!define QUERY_AND_SET 3
; As signed numbers, which they are in 64 bits.
!define HKLM_HANDLE -2147483646
!define HKCU_HANDLE -2147483647

; $1 is the key, opened, $2 the type of the value, $4 the path and $5 the path between semicolons; both have room for
; $INSTDIR. $6 is where ";$INSTDIR;" is in $5, or 0. Wants $7 = ";$INSTDIR;".
!macro OpenPath
  ${If} $MultiUser.InstallMode == "AllUsers"
    System::Call 'advapi32::RegOpenKeyExW(p ${HKLM_HANDLE}, w "SYSTEM\CurrentControlSet\Control\Session Manager\Environment", i 0, i ${QUERY_AND_SET}, *p .r1)'
  ${Else}
    System::Call 'advapi32::RegCreateKeyExW(p ${HKCU_HANDLE}, w "Environment", i 0, p 0, i 0, i ${QUERY_AND_SET}, p 0, *p .r1, p 0)'
  ${EndIf}
  StrCpy $2 ${REG_EXPAND_SZ}
  StrCpy $3 0
  System::Call 'advapi32::RegQueryValueExW(p r1, w "Path", p 0, *i r2r2, p 0, *i r3r3)'
  StrLen $0 $7
  ; Filled with zeros.
  IntOp $0 $0 * 2
  IntOp $0 $0 + $3
  IntOp $0 $0 + 8
  System::Alloc $0
  Pop $4
  System::Alloc $0
  Pop $5
  ${If} $3 > 0
    System::Call 'advapi32::RegQueryValueExW(p r1, w "Path", p 0, p 0, p r4, *i r3r3)'
  ${EndIf}
  System::Call 'kernel32::lstrcpyW(p r5, w ";")'
  System::Call 'kernel32::lstrcatW(p r5, p r4)'
  System::Call 'kernel32::lstrcatW(p r5, w ";")'
  System::Call 'shlwapi::StrStrIW(p r5, w r7) p .r6'
!macroend

; Writes the text at $4.
!macro WritePath
  System::Call 'kernel32::lstrlenW(p r4) i .r0'
  ${If} $0 = 0
    System::Call 'advapi32::RegDeleteValueW(p r1, w "Path")'
  ${Else}
    IntOp $0 $0 * 2
    IntOp $0 $0 + 2
    System::Call 'advapi32::RegSetValueExW(p r1, w "Path", i 0, i r2, p r4, i r0)'
  ${EndIf}
!macroend

; Tells those that run already, so that a terminal that is opened next has the path of today.
!macro TellPath
  SendMessage ${HWND_BROADCAST} ${WM_SETTINGCHANGE} 0 "STR:Environment" /TIMEOUT=1000
!macroend

!macro ClosePath
  System::Free $4
  System::Free $5
  System::Call 'advapi32::RegCloseKey(p r1)'
!macroend

Function EnterPath
  StrCpy $7 ";$INSTDIR;"
  !insertmacro OpenPath
  ${If} $6 = 0
    System::Call 'kernel32::lstrlenW(p r4) i .r0'
    ${If} $0 > 0
      System::Call 'kernel32::lstrcatW(p r4, w ";")'
    ${EndIf}
    StrCpy $0 $INSTDIR
    System::Call 'kernel32::lstrcatW(p r4, w r0)'
    !insertmacro WritePath
    WriteRegStr SHCTX "${ENTRY}" "${IN_PATH}" "1"
  ${EndIf}
  !insertmacro ClosePath
FunctionEnd

Function un.LeavePath
  ReadRegStr $0 SHCTX "${ENTRY}" "${IN_PATH}"
  ${If} $0 == ""
    Return
  ${EndIf}
  DeleteRegValue SHCTX "${ENTRY}" "${IN_PATH}"
  StrCpy $7 ";$INSTDIR;"
  !insertmacro OpenPath
  ${If} $6 <> 0
    ; All behind our folder, with the semicolon, moves to where the one before it is.
    StrLen $0 $7
    IntOp $0 $0 - 1
    IntOp $0 $0 * 2
    IntPtrOp $0 $6 + $0
    System::Call 'kernel32::lstrlenW(p r0) i .r3'
    IntOp $3 $3 + 1
    IntOp $3 $3 * 2
    System::Call 'kernel32::RtlMoveMemory(p r6, p r0, p r3)'
    ; Without the semicolons at both ends. A single one is all that is left of a path that was ours alone.
    System::Call 'kernel32::lstrlenW(p r5) i .r3'
    IntOp $3 $3 - 1
    IntOp $0 $3 * 2
    IntPtrOp $0 $5 + $0
    System::Call '*$0(&i2 0)'
    ${If} $3 > 0
      IntPtrOp $0 $5 + 2
    ${EndIf}
    System::Call 'kernel32::lstrcpyW(p r4, p r0)'
    !insertmacro WritePath
  ${EndIf}
  !insertmacro ClosePath
FunctionEnd
