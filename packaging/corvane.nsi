; The setup program. packaging/package defines
;   VERSION      "1.0.0", and NUMBERS "1.0.0.0"
;   PROCESSOR    x64 or x86
;   COMPRESSOR   lzma or zlib
;   SOURCE       the checkout
;   PARTS        a folder with, for each component, a list of its files (program.txt, a path below
;                the program's folder a line) and the instructions that unpack them (program.nsh);
;                and side.bmp, the picture of the last page
;   OUTPUT       the file to make
;
; Files are unpacked into a folder beside their places and renamed into them when all are there, so
; that a full disk or a cancelled setup leaves the installed program as it was. installed.txt in the
; program's folder lists what was installed; nothing else is ever removed.
;
; Exit codes: docs/packages.md.

!if ${PROCESSOR} == x64
    Target amd64-unicode
    !define PROGRAM_FILES $PROGRAMFILES64
!else
    Target x86-unicode
    !define PROGRAM_FILES $PROGRAMFILES32
!endif
; LogicLib makes labels that it does not use.
!pragma warning disable 6012
!addincludedir "${SOURCE}/packaging"

Name "Corvane ${VERSION}"
OutFile "${OUTPUT}"
; Setup for everyone asks for the rights of an administrator when the user has chosen it.
RequestExecutionLevel user
CRCCheck force
AllowSkipFiles off
SetCompressor /SOLID ${COMPRESSOR}
!if ${COMPRESSOR} == lzma
    SetCompressorDictSize 16
!endif
ManifestDPIAware true
ManifestSupportedOS all
AllowRootDirInstall false
ShowInstDetails nevershow
ShowUninstDetails nevershow
BrandingText "Corvane ${VERSION}"
Icon "${SOURCE}/ui/pictures/icons/corvane.ico"
UninstallIcon "${SOURCE}/ui/pictures/icons/corvane.ico"

VIProductVersion ${NUMBERS}
VIFileVersion ${NUMBERS}
VIAddVersionKey /LANG=1033 CompanyName "Corvane contributors"
VIAddVersionKey /LANG=1033 FileDescription "Setup of Corvane ${VERSION}"
VIAddVersionKey /LANG=1033 FileVersion "${VERSION}"
VIAddVersionKey /LANG=1033 LegalCopyright "Copyright © 2026 Corvane contributors"
VIAddVersionKey /LANG=1033 OriginalFilename "Corvane-${VERSION}-${PROCESSOR}-setup.exe"
VIAddVersionKey /LANG=1033 ProductName "Corvane"
VIAddVersionKey /LANG=1033 ProductVersion "${VERSION}"

!include MUI2.nsh
!include FileFunc.nsh
!include LogicLib.nsh
!include Sections.nsh
!include WinVer.nsh
!include WordFunc.nsh
!include x64.nsh

; The exit codes of setup and of the uninstaller. 1 and 2 are the system's own: cancelled by the
; user, damaged or broken off.
!define FAILED 2
!define NOT_WRITABLE 3
!define IN_USE 4
!define NEWER_INSTALLED 5
!define NO_RIGHTS 6
!define DISK_FULL 7
!define SYSTEM_TOO_OLD 8

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Corvane"
!define APP_PATH_KEY "Software\Microsoft\Windows\CurrentVersion\App Paths\Corvane.exe"
!define CLASSES "Software\Classes"
!define NEW_FILES "Corvane-setup.new"

Var forEveryone   ; 1, else 0
Var isAdmin       ; the same
Var usersGiven    ; by a switch
Var givenFolder   ; of /D=, else empty
Var oldFolder     ; where Corvane is installed for the same users, else empty
Var oldVersion
Var without       ; the components that are left out, as /WITHOUT= has them
Var logFile
Var switches
; Of the walk through a list of files
Var list
Var listFolder    ; where its files are
Var file          ; one of them, below that folder
Var each          ; the procedure to call for each
Var handle
Var heldFile      ; the full path of the first one that cannot be replaced
Var heldError     ; why, as the system's error number
Var out
Var everyoneButton
Var removeData
Var setupMark     ; the handle by which another setup sees this one
Var typesFolder   ; of the program that the types of files are removed of

!include shared.nsh
!include file_types.nsh

!insertmacro Shared ""
!insertmacro Shared "un."

!include setup_pages.nsh

; ---- Start -------------------------------------------------------------------------------------

Function .onInit
    !insertmacro KeepLibrariesOut
    ${GetParameters} $switches
    ${GetOptions} $switches "/LOG=" $logFile
    ${IfNot} ${AtLeastWin7}
        !insertmacro Refuse ${SYSTEM_TOO_OLD} "Corvane ${VERSION} needs Windows 7 or newer."
    ${EndIf}
    ${If} ${RunningX64}
        SetRegView 64
    ${EndIf}
    StrCpy $givenFolder $INSTDIR
    Call OneSetupAtATime
    Call LookForAdmin
    StrCpy $forEveryone 0
    Call RefuseOlder
    SetShellVarContext all
    Call RefuseOlder
    Call ChooseUsers
    Call UseUsers
    Call CheckNotInUse
FunctionEnd

Function OneSetupAtATime
    System::Call 'kernel32::CreateMutexW(p 0, i 0, w "Corvane setup") p .r1 ?e'
    Pop $0
    StrCpy $setupMark $1
    ${If} $0 = 183
        !insertmacro Refuse ${IN_USE} "Another setup of Corvane is running.$\r$\n$\r$\nWait until \
            it has ended, then start this one again."
    ${EndIf}
FunctionEnd

; A newer Corvane in the registry of the users at hand.
Function RefuseOlder
    ReadRegStr $0 SHCTX "${UNINSTALL_KEY}" DisplayVersion
    ReadRegStr $1 SHCTX "${UNINSTALL_KEY}" InstallLocation
    ${If} $0 == ""
        Return
    ${EndIf}
    ${VersionCompare} $0 ${VERSION} $2
    ${If} $2 = 1
        !insertmacro Refuse ${NEWER_INSTALLED} "Corvane $0 in $\"$1$\" is newer than this setup \
            (${VERSION}). Nothing was changed.$\r$\n$\r$\nTo go back to ${VERSION}, uninstall \
            Corvane $0 first; your settings and databases stay."
    ${EndIf}
FunctionEnd

; By the switches; without one for the users for whom it is installed, else for this user alone.
Function ChooseUsers
    StrCpy $forEveryone 0
    StrCpy $usersGiven 0
    ReadRegStr $0 HKCU "${UNINSTALL_KEY}" InstallLocation
    ReadRegStr $1 HKLM "${UNINSTALL_KEY}" InstallLocation
    ${If} $0 == ""
    ${AndIf} $1 != ""
    ${AndIf} $isAdmin = 1
        StrCpy $forEveryone 1
    ${EndIf}
    ClearErrors
    ${GetOptions} $switches "/CURRENTUSER" $0
    ${IfNot} ${Errors}
        StrCpy $usersGiven 1
        StrCpy $forEveryone 0
    ${EndIf}
    ClearErrors
    ${GetOptions} $switches "/ALLUSERS" $0
    ${IfNot} ${Errors}
        StrCpy $usersGiven 1
        StrCpy $forEveryone 1
        ${If} $isAdmin = 0
            !insertmacro Refuse ${NO_RIGHTS} "To install Corvane for everyone, the setup needs the \
                rights of an administrator.$\r$\n$\r$\nStart it as an administrator, or without \
                /ALLUSERS to install Corvane for yourself alone."
        ${EndIf}
    ${EndIf}
FunctionEnd

; ---- Install -----------------------------------------------------------------------------------

Section "Corvane" Program
    SectionIn RO
    Call CheckNotInUse
    Call CheckFolder
    Call CheckSpace
    FileOpen $out "$PLUGINSDIR\new.txt" w
    !insertmacro Unpack program
SectionEnd

Section "Sample ship" SampleShip
    !insertmacro Unpack samples
SectionEnd

Section "Stand-ins for the suite" StandIns
    !insertmacro Unpack stand_ins
SectionEnd

; Only marks the choice: types are registered when the program is in its place.
Section "File types" FileTypes
SectionEnd

Section "-In place"
    FileClose $out
    SetOutPath "$INSTDIR"
    !insertmacro Copy "$oldFolder\installed.txt" "$PLUGINSDIR\old.txt"
    !insertmacro ForEach "$PLUGINSDIR\new.txt" "$INSTDIR" PutInPlace
    ${If} $heldFile != ""
        !insertmacro Stop ${FAILED} "$\"$heldFile$\" could not be replaced (error $heldError). \
            Corvane is only partly installed.$\r$\n$\r$\nClose the programs that use this file, \
            and start the setup again."
    ${EndIf}
    ${If} $oldFolder != ""
        !insertmacro ForEach "$PLUGINSDIR\old.txt" "$oldFolder" RemoveOld
    ${EndIf}
    RMDir /r "$INSTDIR\${NEW_FILES}"
    !insertmacro Copy "$PLUGINSDIR\new.txt" "$INSTDIR\installed.txt"
    WriteUninstaller "$INSTDIR\uninstall.exe"
    ${If} $oldFolder != ""
    ${AndIf} $oldFolder != $INSTDIR
        Delete "$oldFolder\uninstall.exe"
        Delete "$oldFolder\installed.txt"
        RMDir "$oldFolder"
    ${EndIf}
    Call NoteWithout
    Call Register
    Call RegisterChosenTypes
    Call MakeShortcuts
    Call SetDataFolder
    !insertmacro Log 'Corvane ${VERSION} is installed in "$INSTDIR".'
SectionEnd

!insertmacro MUI_FUNCTION_DESCRIPTION_BEGIN
    !insertmacro MUI_DESCRIPTION_TEXT ${Program} "The program, the program for the command line, \
        their libraries, and the user guide."
    !insertmacro MUI_DESCRIPTION_TEXT ${SampleShip} "A ship to try Corvane on."
    !insertmacro MUI_DESCRIPTION_TEXT ${StandIns} "Simple programs for input, until those of the \
        suite are installed. They check nothing."
    !insertmacro MUI_DESCRIPTION_TEXT ${FileTypes} "Databases (ve2, vew), DOS databases (vel) and \
        Basic Ship Data (bsd) open in Corvane by a double click, unless they open in another \
        program now."
!insertmacro MUI_FUNCTION_DESCRIPTION_END

; The new files are gone, the folders that were made for them, too; what was installed is as it was.
Function .onInstFailed
    SetOutPath "$TEMP"
    RMDir /r "$INSTDIR\${NEW_FILES}"
    RMDir "$INSTDIR"
FunctionEnd

; What follows from the choice of users: registry, folders, the installed version, its components.
Function UseUsers
    SetShellVarContext current
    ${If} $forEveryone = 1
        SetShellVarContext all
    ${EndIf}
    ReadRegStr $oldFolder SHCTX "${UNINSTALL_KEY}" InstallLocation
    ReadRegStr $oldVersion SHCTX "${UNINSTALL_KEY}" DisplayVersion
    ${If} $givenFolder != ""
        StrCpy $INSTDIR $givenFolder
    ${ElseIf} $oldFolder != ""
        StrCpy $INSTDIR $oldFolder
    ${ElseIf} $forEveryone = 1
        StrCpy $INSTDIR "${PROGRAM_FILES}\Corvane"
    ${Else}
        StrCpy $INSTDIR "$LOCALAPPDATA\Programs\Corvane"
    ${EndIf}
    ClearErrors
    ${GetOptions} $switches "/WITHOUT=" $without
    ${If} ${Errors}
        ReadRegStr $without SHCTX "${UNINSTALL_KEY}" Without
    ${EndIf}
    !insertmacro LeaveOut ${SampleShip} sample
    !insertmacro LeaveOut ${StandIns} standins
    !insertmacro LeaveOut ${FileTypes} filetypes
FunctionEnd

Function CheckNotInUse
  again:
    StrCpy $heldFile ""
    ${If} $oldFolder != ""
        !insertmacro RefuseHeld "$oldFolder\Corvane.exe"
        !insertmacro ForEach "$oldFolder\installed.txt" "$oldFolder" NoteHeld
    ${EndIf}
    ${If} $heldFile == ""
        !insertmacro RefuseHeld "$INSTDIR\Corvane.exe"
    ${EndIf}
    ${If} $heldFile != ""
        !insertmacro AskToClose again "install Corvane ${VERSION}"
    ${EndIf}
FunctionEnd

; The folder takes new files, or setup ends.
Function CheckFolder
    RMDir /r "$INSTDIR\${NEW_FILES}"
    ClearErrors
    CreateDirectory "$INSTDIR\${NEW_FILES}"
    ${If} ${Errors}
        !insertmacro Stop ${NOT_WRITABLE} "The folder $\"$INSTDIR$\" cannot be written. Nothing \
            was installed.$\r$\n$\r$\nChoose a folder in which you may make files, or install \
            Corvane for everyone as an administrator."
    ${EndIf}
    ClearErrors
    FileOpen $0 "$INSTDIR\${NEW_FILES}\test" w
    ${If} ${Errors}
        !insertmacro Stop ${NOT_WRITABLE} "No file can be made in the folder $\"$INSTDIR$\". \
            Nothing was installed.$\r$\n$\r$\nChoose another folder."
    ${EndIf}
    FileClose $0
    Delete "$INSTDIR\${NEW_FILES}\test"
FunctionEnd

; Room for all chosen files beside those that are there.
Function CheckSpace
    StrCpy $1 0
    !insertmacro AddSize ${Program}
    !insertmacro AddSize ${SampleShip}
    !insertmacro AddSize ${StandIns}
    System::Call 'kernel32::GetDiskFreeSpaceExW(w "$INSTDIR", *l .r2, p 0, p 0) i .r3'
    ${If} $3 = 0
        Return
    ${EndIf}
    System::Int64Op $2 / 1024
    Pop $2
    System::Int64Op $2 < $1
    Pop $3
    ${If} $3 = 1
        !insertmacro Stop ${DISK_FULL} "The disk of $\"$INSTDIR$\" has $2 KB left, and Corvane \
            needs $1 KB. Nothing was installed.$\r$\n$\r$\nMake room on the disk, or choose a \
            folder on another one."
    ${EndIf}
FunctionEnd

; One file of the new list into its place. A program or library that the user has put there in the
; place of ours stays; a file of unknown origin is kept beside ours.
Function PutInPlace
    ${If} $heldFile != ""
        Return
    ${EndIf}
    StrCpy $R8 "$INSTDIR\${NEW_FILES}\$file"
    StrCpy $R9 "$listFolder\$file"
    Call OwnerOf
    ${If} $R0 == other
        !insertmacro Log '"$R9" is not of Corvane; it stays.'
        Delete $R8
        Return
    ${EndIf}
    ${If} $R0 == unknown
    ${AndIfNot} ${FileExists} "$R9.old"
        Rename $R9 "$R9.old"
        !insertmacro Log '"$R9" is of unknown origin; it is kept as "$R9.old".'
    ${EndIf}
    ${GetParent} $R9 $0
    CreateDirectory $0
    SetFileAttributes $R9 NORMAL
    System::Call 'kernel32::MoveFileExW(w R8, w R9, i 1) i .r0 ?e'
    Pop $1
    ${If} $0 = 0
        StrCpy $heldFile $R9
        StrCpy $heldError $1
    ${EndIf}
FunctionEnd

; A file of the replaced version that the new one does not have.
Function RemoveOld
    ${If} $oldFolder == $INSTDIR
        StrCpy $R7 $file
        Call IsInNewList
        ${If} $R0 = 1
            Return
        ${EndIf}
    ${EndIf}
    Call RemoveInstalled
FunctionEnd

; Whether the file $R7 is in the new list: $R0 is 1, else 0.
Function IsInNewList
    StrCpy $R0 0
    FileOpen $0 "$PLUGINSDIR\new.txt" r
  next:
    FileRead $0 $1
    ${If} $1 == "$R7$\r$\n"
        StrCpy $R0 1
    ${ElseIf} $1 != ""
        Goto next
    ${EndIf}
    FileClose $0
FunctionEnd

; For the next setup: the components that the user left out.
Function NoteWithout
    StrCpy $without ""
    !insertmacro NoteLeftOut ${SampleShip} sample
    !insertmacro NoteLeftOut ${StandIns} standins
    !insertmacro NoteLeftOut ${FileTypes} filetypes
FunctionEnd

Function Register
    WriteRegStr SHCTX "${UNINSTALL_KEY}" DisplayName "Corvane"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" DisplayVersion "${VERSION}"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" DisplayIcon "$INSTDIR\Corvane.exe"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" Publisher "Corvane contributors"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" InstallLocation "$INSTDIR"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" UninstallString '"$INSTDIR\uninstall.exe"'
    WriteRegStr SHCTX "${UNINSTALL_KEY}" QuietUninstallString '"$INSTDIR\uninstall.exe" /S'
    WriteRegStr SHCTX "${UNINSTALL_KEY}" Without "$without"
    WriteRegDWORD SHCTX "${UNINSTALL_KEY}" NoModify 1
    WriteRegDWORD SHCTX "${UNINSTALL_KEY}" NoRepair 1
    StrCpy $1 0
    !insertmacro AddSize ${Program}
    !insertmacro AddSize ${SampleShip}
    !insertmacro AddSize ${StandIns}
    WriteRegDWORD SHCTX "${UNINSTALL_KEY}" EstimatedSize $1
    WriteRegStr SHCTX "${APP_PATH_KEY}" "" "$INSTDIR\Corvane.exe"
    WriteRegStr SHCTX "${APP_PATH_KEY}" Path "$INSTDIR"
FunctionEnd

Function RegisterChosenTypes
    ${If} ${SectionIsSelected} ${FileTypes}
        Call RegisterTypes
    ${Else}
        StrCpy $typesFolder $oldFolder
        Call UnregisterTypes
    ${EndIf}
FunctionEnd

Function MakeShortcuts
    SetOutPath "$INSTDIR"
    CreateDirectory "$SMPROGRAMS\Corvane"
    CreateShortcut "$SMPROGRAMS\Corvane\Corvane.lnk" "$INSTDIR\Corvane.exe"
    CreateShortcut "$SMPROGRAMS\Corvane\User guide.lnk" "$INSTDIR\help\index.html"
    ${If} ${SectionIsSelected} ${SampleShip}
        CreateShortcut "$SMPROGRAMS\Corvane\Sample ship.lnk" "$INSTDIR\Corvane.exe" \
            '"$INSTDIR\samples\aurora_bay.ve2"'
    ${Else}
        Delete "$SMPROGRAMS\Corvane\Sample ship.lnk"
    ${EndIf}
FunctionEnd

; Where Corvane looks for the programs of the suite: its own folder, unless the settings name one.
Function SetDataFolder
    ${If} $forEveryone = 1
        StrCpy $0 "$WINDIR\Corvane.ini"
    ${Else}
        StrCpy $0 "$APPDATA\Corvane\Corvane.ini"
        ; With a file of their own users no longer read the one that is shared.
        ${IfNot} ${FileExists} $0
        ${AndIf} ${FileExists} "$WINDIR\Corvane.ini"
            Return
        ${EndIf}
        CreateDirectory "$APPDATA\Corvane"
    ${EndIf}
    ReadINIStr $1 $0 Corvane DataDirectory
    ${If} $1 != ""
    ${AndIf} $1 != "$oldFolder\"
        Return
    ${EndIf}
    WriteINIStr $0 Corvane DataDirectory "$INSTDIR\"
    ; The file has the letters of one code page; a path with others is better not in it, as the
    ; program's own folder is where Corvane looks without the key.
    ReadINIStr $1 $0 Corvane DataDirectory
    ${If} $1 != "$INSTDIR\"
        DeleteINIStr $0 Corvane DataDirectory
    ${EndIf}
FunctionEnd

!include uninstall.nsh
