; The uninstaller.

Function un.onInit
    !insertmacro KeepLibrariesOut
    ${un.GetParameters} $switches
    ${un.GetOptions} $switches "/LOG=" $logFile
    ${If} ${RunningX64}
        SetRegView 64
    ${EndIf}
    Call un.LookForAdmin
    StrCpy $forEveryone 0
    ReadRegStr $0 HKLM "${UNINSTALL_KEY}" InstallLocation
    ${If} $0 == $INSTDIR
        StrCpy $forEveryone 1
        SetShellVarContext all
    ${EndIf}
    ${If} $forEveryone = 1
    ${AndIf} $isAdmin = 0
        ${IfNot} ${Silent}
            ClearErrors
            ExecShell "runas" "$INSTDIR\uninstall.exe"
            IfErrors 0 started
        ${EndIf}
        !insertmacro un.Refuse ${NO_RIGHTS} "Corvane in $\"$INSTDIR$\" is installed for everyone; \
            an administrator has to uninstall it. Nothing was removed."
      started:
        Quit
    ${EndIf}
    StrCpy $removeData 0
    ClearErrors
    ${un.GetOptions} $switches "/REMOVEDATA" $0
    ${IfNot} ${Errors}
        StrCpy $removeData 1
    ${EndIf}
    Call un.CheckNotInUse
FunctionEnd

Function un.CheckNotInUse
  again:
    StrCpy $heldFile ""
    !insertmacro un.RefuseHeld "$INSTDIR\Corvane.exe"
    !insertmacro un.ForEach "$INSTDIR\installed.txt" "$INSTDIR" NoteHeld
    ${If} $heldFile != ""
        !insertmacro un.AskToClose again "uninstall Corvane"
    ${EndIf}
FunctionEnd

Section Uninstall
    Call un.CheckNotInUse
    StrCpy $typesFolder $INSTDIR
    Call un.UnregisterTypes
    !insertmacro un.ForEach "$INSTDIR\installed.txt" "$INSTDIR" RemoveInstalled
    Delete "$INSTDIR\installed.txt"
    Delete "$INSTDIR\uninstall.exe"
    SetOutPath "$TEMP"
    RMDir "$INSTDIR"
    Delete "$SMPROGRAMS\Corvane\Corvane.lnk"
    Delete "$SMPROGRAMS\Corvane\User guide.lnk"
    Delete "$SMPROGRAMS\Corvane\Sample ship.lnk"
    RMDir "$SMPROGRAMS\Corvane"
    ReadRegStr $0 SHCTX "${APP_PATH_KEY}" ""
    ${If} $0 == "$INSTDIR\Corvane.exe"
        DeleteRegKey SHCTX "${APP_PATH_KEY}"
    ${EndIf}
    ReadRegStr $0 SHCTX "${UNINSTALL_KEY}" InstallLocation
    ${If} $0 == $INSTDIR
        DeleteRegKey SHCTX "${UNINSTALL_KEY}"
    ${EndIf}
    Call un.ForgetDataFolder
    ${If} $removeData = 1
        Call un.RemoveData
    ${EndIf}
    !insertmacro Log 'Corvane is removed from "$INSTDIR".'
SectionEnd

; The folder of the suite's programs was this one: the settings that stay do not name it.
Function un.ForgetDataFolder
    SetShellVarContext current
    StrCpy $0 "$APPDATA\Corvane\Corvane.ini"
    ${If} $forEveryone = 1
        SetShellVarContext all
        StrCpy $0 "$WINDIR\Corvane.ini"
    ${EndIf}
    ReadINIStr $1 $0 Corvane DataDirectory
    ${If} $1 == "$INSTDIR\"
        DeleteINIStr $0 Corvane DataDirectory
    ${EndIf}
FunctionEnd

Function un.RemoveData
    SetShellVarContext current
    Delete "$APPDATA\Corvane\Corvane.ini"
    RMDir "$APPDATA\Corvane"
    RMDir /r "$LOCALAPPDATA\Corvane\history"
    ; Log and dumps of crashes.
    Delete "$LOCALAPPDATA\Corvane\corvane.log"
    Delete "$LOCALAPPDATA\Corvane\corvane.old.log"
    Delete "$LOCALAPPDATA\Corvane\Corvane *.dmp"
    RMDir "$LOCALAPPDATA\Corvane"
FunctionEnd
