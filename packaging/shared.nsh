; What the setup and the uninstaller share. The uninstaller's functions have other names ("un."), so
; they are made twice.

; Libraries come from the system's folder, never from the one that the setup was downloaded to. The
; one that themes load later is loaded now: a name that is loaded is not looked for.
!macro KeepLibrariesOut
    System::Call 'kernel32::SetDefaultDllDirectories(i 0x800)'
    System::Call 'kernel32::LoadLibraryW(w "$SYSDIR\msimg32.dll")'
!macroend

; ---- Reports -----------------------------------------------------------------------------------

; A line of the file that /LOG= names.
!macro Log TEXT
    ${If} $logFile != ""
        Push $9
        FileOpen $9 $logFile a
        FileSeek $9 0 END
        FileWriteUTF16LE $9 `${TEXT}$\r$\n`
        FileClose $9
        Pop $9
    ${EndIf}
!macroend

; Ends before anything was changed.
!macro Refuse CODE TEXT
    StrCpy $R0 "${TEXT}"
    StrCpy $R1 ${CODE}
    Call Refuse
!macroend
!macro un.Refuse CODE TEXT
    StrCpy $R0 "${TEXT}"
    StrCpy $R1 ${CODE}
    Call un.Refuse
!macroend

; Ends the installation.
!macro Stop CODE TEXT
    !insertmacro Log `${TEXT}`
    SetErrorLevel ${CODE}
    MessageBox MB_OK|MB_ICONSTOP "${TEXT}" /SD IDOK
    Abort "Not installed."
!macroend

; $heldFile and $heldError name a file that cannot be replaced.
!macro AskToCloseFor UN AGAIN WHAT
    ${If} $heldError = 32
        StrCpy $R0 "Corvane is running, or another program uses $\"$heldFile$\".$\r$\n$\r$\nTo \
            ${WHAT}, close it, then choose Retry. Nothing has been changed yet."
        StrCpy $R1 ${IN_USE}
    ${Else}
        StrCpy $R0 "You may not change $\"$heldFile$\" (error $heldError). Nothing was \
            changed.$\r$\n$\r$\nTo ${WHAT}, ask an administrator, or choose Retry when the file \
            can be written."
        StrCpy $R1 ${NOT_WRITABLE}
    ${EndIf}
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$R0" /SD IDCANCEL IDRETRY ${AGAIN}
    !insertmacro Log `$R0`
    SetErrorLevel $R1
    Quit
!macroend
!macro AskToClose AGAIN WHAT
    !insertmacro AskToCloseFor "" ${AGAIN} `${WHAT}`
!macroend
!macro un.AskToClose AGAIN WHAT
    !insertmacro AskToCloseFor "un." ${AGAIN} `${WHAT}`
!macroend

!macro Copy FROM TO
    System::Call 'kernel32::CopyFileW(w "${FROM}", w "${TO}", i 0)'
!macroend

; ---- Components --------------------------------------------------------------------------------

; Takes the mark off a component that $without names.
!macro LeaveOut SECTION NAME
    StrCpy $R0 $without
    StrCpy $R1 ${NAME}
    Call HasWord
    ${If} $R2 = 1
        !insertmacro UnselectSection ${SECTION}
    ${Else}
        !insertmacro SelectSection ${SECTION}
    ${EndIf}
!macroend

!macro NoteLeftOut SECTION NAME
    ${IfNot} ${SectionIsSelected} ${SECTION}
        StrCpy $without "$without${NAME},"
    ${EndIf}
!macroend

; Adds the size of a chosen component to $1, in KB.
!macro AddSize SECTION
    ${If} ${SectionIsSelected} ${SECTION}
        SectionGetSize ${SECTION} $0
        IntOp $1 $1 + $0
    ${EndIf}
!macroend

; Unpacks a component beside its places and adds its files to the new list.
!macro Unpack PART
    File "/oname=$PLUGINSDIR\${PART}.txt" "${PARTS}/${PART}.txt"
    !define NEW "$INSTDIR\${NEW_FILES}"
    !include "${PARTS}/${PART}.nsh"
    !undef NEW
    !insertmacro ForEach "$PLUGINSDIR\${PART}.txt" "$INSTDIR" AddToNewList
!macroend

Function AddToNewList
    FileWrite $out "$file$\r$\n"
FunctionEnd

; ---- Lists of files ----------------------------------------------------------------------------

; Calls the function for each file of a list, with $file and $listFolder.
!macro ForEach LIST FOLDER FUNCTION
    StrCpy $list "${LIST}"
    StrCpy $listFolder "${FOLDER}"
    GetFunctionAddress $each ${FUNCTION}
    Call ForEachFile
!macroend
!macro un.ForEach LIST FOLDER FUNCTION
    StrCpy $list "${LIST}"
    StrCpy $listFolder "${FOLDER}"
    GetFunctionAddress $each un.${FUNCTION}
    Call un.ForEachFile
!macroend

; Notes a file that cannot be replaced. An existing one is opened as for writing.
!macro RefuseHeld PATH
    StrCpy $R9 "${PATH}"
    Call NoteHeldPath
!macroend
!macro un.RefuseHeld PATH
    StrCpy $R9 "${PATH}"
    Call un.NoteHeldPath
!macroend

!macro Shared UN
Function ${UN}Refuse
    !insertmacro Log `$R0`
    MessageBox MB_OK|MB_ICONSTOP "$R0" /SD IDOK
    SetErrorLevel $R1
    Quit
FunctionEnd

Function ${UN}LookForAdmin
    StrCpy $isAdmin 0
    UserInfo::GetAccountType
    Pop $0
    ${If} $0 == Admin
        StrCpy $isAdmin 1
    ${EndIf}
FunctionEnd

; Whether the text $R0 has the word $R1: $R2 is 1, else 0.
Function ${UN}HasWord
    StrLen $2 $R1
    StrCpy $3 0
    StrCpy $R2 0
  next:
    StrCpy $4 $R0 $2 $3
    StrCpy $5 $R0 1 $3
    ${If} $4 == $R1
        StrCpy $R2 1
    ${ElseIf} $5 != ""
        IntOp $3 $3 + 1
        Goto next
    ${EndIf}
FunctionEnd

; The lines of the list; one that leads out of the folder is skipped, whoever has written it.
Function ${UN}ForEachFile
    ClearErrors
    FileOpen $handle $list r
    ${If} ${Errors}
        Return
    ${EndIf}
  next:
    FileRead $handle $file
    ${If} $file != ""
        ${Do}
            StrCpy $0 $file 1 -1
            ${If} $0 != "$\r"
            ${AndIf} $0 != "$\n"
                ${Break}
            ${EndIf}
            StrCpy $file $file -1
        ${Loop}
        Call ${UN}CallForFile
        Goto next
    ${EndIf}
    FileClose $handle
FunctionEnd

Function ${UN}CallForFile
    ${If} $file == ""
        Return
    ${EndIf}
    StrCpy $R0 $file
    StrCpy $R1 ".."
    Call ${UN}HasWord
    StrCpy $6 $R2
    StrCpy $R1 ":"
    Call ${UN}HasWord
    ${If} $6 = 0
    ${AndIf} $R2 = 0
        Call $each
    ${EndIf}
FunctionEnd

Function ${UN}NoteHeld
    ${If} $heldFile == ""
        StrCpy $R9 "$listFolder\$file"
        Call ${UN}NoteHeldPath
    ${EndIf}
FunctionEnd

; Opens the file $R9 for writing, everything shared; a running program is not given.
Function ${UN}NoteHeldPath
    ${IfNot} ${FileExists} $R9
        Return
    ${EndIf}
    ; One that is only marked as read-only can be replaced.
    System::Call 'kernel32::GetFileAttributesW(w R9) i .r2'
    SetFileAttributes $R9 NORMAL
    System::Call 'kernel32::CreateFileW(w R9, i 0x40000000, i 7, p 0, i 3, i 0, p 0) p .r0 ?e'
    Pop $1
    ${If} $0 P<> -1
        System::Call 'kernel32::CloseHandle(p r0)'
    ${Else}
        StrCpy $heldFile $R9
        StrCpy $heldError $1
    ${EndIf}
    System::Call 'kernel32::SetFileAttributesW(w R9, i r2)'
FunctionEnd

; Whose the program or library $R9 is, by the company in its version: $R0 is "ours", "other",
; "unknown" (no version in it), or "none" for a file that is not there or is neither.
Function ${UN}OwnerOf
    StrCpy $R0 none
    ${IfNot} ${FileExists} $R9
        Return
    ${EndIf}
    StrCpy $0 $R9 "" -4
    ${If} $0 != ".exe"
    ${AndIf} $0 != ".dll"
    ${AndIf} $0 != ".com"
        Return
    ${EndIf}
    StrCpy $R0 unknown
    System::Call '$SYSDIR\version.dll::GetFileVersionInfoSizeW(w R9, *i .r0) i .r1'
    ${If} $1 = 0
        Return
    ${EndIf}
    System::Alloc $1
    Pop $2
    System::Call '$SYSDIR\version.dll::GetFileVersionInfoW(w R9, i 0, i r1, p r2) i .r3'
    ${If} $3 <> 0
        Call ${UN}CompanyOf
    ${EndIf}
    System::Free $2
FunctionEnd

; The same for the version at the address $2.
Function ${UN}CompanyOf
    System::Call '$SYSDIR\version.dll::VerQueryValueW(p r2, w "\VarFileInfo\Translation", *p .r3, \
        *i .r4) i .r5'
    ${If} $5 = 0
        Return
    ${EndIf}
    System::Call '*$3(&i2 .r4, &i2 .r5)'
    IntFmt $4 "%04X" $4
    IntFmt $5 "%04X" $5
    System::Call '$SYSDIR\version.dll::VerQueryValueW(p r2, \
        w "\StringFileInfo\$4$5\CompanyName", *p .r3, *i .r4) i .r5'
    ${If} $5 = 0
        Return
    ${EndIf}
    System::Call 'kernel32::lstrcpynW(w .r4, p r3, i 100)'
    StrCpy $R0 other
    ${If} $4 == "Corvane contributors"
        StrCpy $R0 ours
    ${EndIf}
FunctionEnd

; Removes an installed file that is still ours, and folders that are empty then, up to the
; program's own.
Function ${UN}RemoveInstalled
    StrCpy $R9 "$listFolder\$file"
    Call ${UN}OwnerOf
    ${If} $R0 == other
    ${OrIf} $R0 == unknown
        !insertmacro Log '"$R9" is not of Corvane; it stays.'
        Return
    ${EndIf}
    Delete $R9
    ${Do}
        ${${UN}GetParent} $R9 $R9
        ${If} $R9 == $listFolder
        ${OrIf} $R9 == ""
            ${Break}
        ${EndIf}
        ClearErrors
        RMDir $R9
        ${If} ${Errors}
            ${Break}
        ${EndIf}
    ${Loop}
FunctionEnd

!insertmacro FileTypesFor "${UN}"
!macroend
