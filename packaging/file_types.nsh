; The types of files in the registry: a name of ours for each (a ProgID) with icon and verbs, and
; the name in the list of programs that can open the extension. Only an extension that no program
; has gets ours as its own.

!define TYPES_CHANGED "System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'"

; The icon is the number of a resource of Corvane.exe.
!macro RegisterType EXTENSION NAME DESCRIPTION ICON
    WriteRegStr SHCTX "${CLASSES}\${NAME}" "" "${DESCRIPTION}"
    WriteRegStr SHCTX "${CLASSES}\${NAME}\DefaultIcon" "" '"$INSTDIR\Corvane.exe",-${ICON}'
    WriteRegStr SHCTX "${CLASSES}\${NAME}\shell\open" "" "&Open"
    WriteRegStr SHCTX "${CLASSES}\${NAME}\shell\open\command" "" '"$INSTDIR\Corvane.exe" "%1"'
    WriteRegStr SHCTX "${CLASSES}\${EXTENSION}\OpenWithProgids" "${NAME}" ""
    ReadRegStr $0 HKCU "${CLASSES}\${EXTENSION}" ""
    ReadRegStr $1 HKLM "${CLASSES}\${EXTENSION}" ""
    ${If} "$0$1" == ""
        WriteRegStr SHCTX "${CLASSES}\${EXTENSION}" "" "${NAME}"
    ${EndIf}
!macroend

!macro RegisterCheck NAME
    WriteRegStr SHCTX "${CLASSES}\${NAME}\shell\check" "" "&Check"
    WriteRegStr SHCTX "${CLASSES}\${NAME}\shell\check\command" "" \
        '"$INSTDIR\Corvane.exe" /check "%1"'
!macroend

!macro UnregisterType EXTENSION NAME
    ; That of another folder, or of everyone, stays.
    ReadRegStr $0 SHCTX "${CLASSES}\${NAME}\shell\open\command" ""
    ${If} $0 == '"$typesFolder\Corvane.exe" "%1"'
        DeleteRegKey SHCTX "${CLASSES}\${NAME}"
        DeleteRegValue SHCTX "${CLASSES}\${EXTENSION}\OpenWithProgids" "${NAME}"
        DeleteRegKey /ifempty SHCTX "${CLASSES}\${EXTENSION}\OpenWithProgids"
        ReadRegStr $0 SHCTX "${CLASSES}\${EXTENSION}" ""
        ${If} $0 == "${NAME}"
            DeleteRegValue SHCTX "${CLASSES}\${EXTENSION}" ""
        ${EndIf}
        DeleteRegKey /ifempty SHCTX "${CLASSES}\${EXTENSION}"
    ${EndIf}
!macroend

Function RegisterTypes
    !insertmacro RegisterType .ve2 Corvane.Database "Corvane database" 1
    !insertmacro RegisterCheck Corvane.Database
    !insertmacro RegisterType .vew Corvane.OlderDatabase "Older Corvane database" 1
    !insertmacro RegisterCheck Corvane.OlderDatabase
    !insertmacro RegisterType .vel Corvane.DosDatabase "Corvane DOS database" 100
    !insertmacro RegisterType .bsd Corvane.ShipData "Basic Ship Data" 150
    ${TYPES_CHANGED}
FunctionEnd

!macro FileTypesFor UN
Function ${UN}UnregisterTypes
    !insertmacro UnregisterType .ve2 Corvane.Database
    !insertmacro UnregisterType .vew Corvane.OlderDatabase
    !insertmacro UnregisterType .vel Corvane.DosDatabase
    !insertmacro UnregisterType .bsd Corvane.ShipData
    ${TYPES_CHANGED}
FunctionEnd
!macroend
