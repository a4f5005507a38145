; The pages of the setup and of the uninstaller.

!define MUI_ICON "${SOURCE}/ui/pictures/icons/corvane.ico"
!define MUI_UNICON "${SOURCE}/ui/pictures/icons/corvane.ico"
!define MUI_ABORTWARNING
!define MUI_ABORTWARNING_TEXT "Cancel the setup? Nothing has been changed yet."
!define MUI_COMPONENTSPAGE_SMALLDESC

Page custom AskForUsers TakeUsers
!insertmacro MUI_PAGE_COMPONENTS
!define MUI_PAGE_CUSTOMFUNCTION_PRE SkipFolder
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!define MUI_WELCOMEFINISHPAGE_BITMAP "${PARTS}/side.bmp"
!define MUI_FINISHPAGE_TITLE "Corvane ${VERSION} is installed"
!define MUI_FINISHPAGE_TEXT "Corvane and its user guide are in the Start menu."
!define MUI_FINISHPAGE_TEXT_LARGE
!define MUI_FINISHPAGE_RUN
!define MUI_FINISHPAGE_RUN_TEXT "Start Corvane now"
!define MUI_FINISHPAGE_RUN_FUNCTION StartCorvane
!insertmacro MUI_PAGE_FINISH

UninstPage custom un.AskForData un.TakeData
!insertmacro MUI_UNPAGE_INSTFILES

!insertmacro MUI_LANGUAGE English

; Not when a switch has said it.
Function AskForUsers
    ${If} $usersGiven = 1
        Abort
    ${EndIf}
    !insertmacro MUI_HEADER_TEXT "Install Corvane ${VERSION}" \
        "Who will use Corvane on this computer?"
    nsDialogs::Create 1018
    Pop $0
    ${NSD_CreateRadioButton} 0 10u 100% 12u "Only &me"
    Pop $1
    ${NSD_CreateLabel} 12u 24u 95% 20u "Corvane is installed in your own folder. No \
        administrator's rights are needed."
    Pop $0
    ${NSD_CreateRadioButton} 0 52u 100% 12u "&Everyone who uses this computer"
    Pop $everyoneButton
    ${NSD_CreateLabel} 12u 66u 95% 20u "Corvane is installed in the folder of all programs. \
        Windows asks for an administrator's rights."
    Pop $0
    ${If} $oldFolder != ""
        ${NSD_CreateLabel} 0 98u 100% 30u 'Corvane $oldVersion is installed in "$oldFolder". It is \
            replaced; settings, databases and their history stay.'
        Pop $0
    ${EndIf}
    ${If} $forEveryone = 1
        StrCpy $1 $everyoneButton
    ${EndIf}
    ${NSD_Check} $1
    ${NSD_SetFocus} $1
    nsDialogs::Show
FunctionEnd

Function TakeUsers
    ${NSD_GetState} $everyoneButton $0
    ${If} $0 = ${BST_CHECKED}
    ${AndIf} $isAdmin = 0
        ; Setup starts again with those rights and without this page.
        System::Call 'kernel32::CloseHandle(p $setupMark)'
        ClearErrors
        ExecShell "runas" "$EXEPATH" "/ALLUSERS $switches"
        IfErrors 0 started
        MessageBox MB_OK|MB_ICONEXCLAMATION "Windows did not give the setup an administrator's \
            rights.$\r$\n$\r$\nChoose $\"Only me$\", or ask an administrator to install Corvane."
        Abort
    started:
        Quit
    ${EndIf}
    StrCpy $forEveryone 0
    ${If} $0 = ${BST_CHECKED}
        StrCpy $forEveryone 1
    ${EndIf}
    Call UseUsers
FunctionEnd

; An installed Corvane is replaced where it is.
Function SkipFolder
    ${If} $oldFolder != ""
    ${AndIf} $givenFolder == ""
        Abort
    ${EndIf}
FunctionEnd

; Not with the rights of an administrator that the setup may have.
Function StartCorvane
    Exec '"$WINDIR\explorer.exe" "$INSTDIR\Corvane.exe"'
FunctionEnd

Function un.AskForData
    !insertmacro MUI_HEADER_TEXT "Uninstall Corvane" "What is removed from this computer"
    SetShellVarContext current
    nsDialogs::Create 1018
    Pop $0
    ${NSD_CreateLabel} 0 4u 100% 24u 'Corvane is removed from "$INSTDIR". Your databases, and \
        other files that you have put there, stay.'
    Pop $0
    ${NSD_CreateCheckBox} 0 40u 100% 12u "&Also remove my settings, the history of my databases, and the log"
    Pop $removeData
    ${NSD_CreateLabel} 12u 54u 95% 40u 'Without the history, Undo and File > Earlier versions have \
        nothing to go back to. The settings are in "$APPDATA\Corvane", the history is in \
        "$LOCALAPPDATA\Corvane".'
    Pop $0
    GetDlgItem $0 $HWNDPARENT 1
    SendMessage $0 ${WM_SETTEXT} 0 "STR:&Uninstall"
    ${If} $forEveryone = 1
        SetShellVarContext all
    ${EndIf}
    nsDialogs::Show
FunctionEnd

Function un.TakeData
    ${NSD_GetState} $removeData $removeData
FunctionEnd
