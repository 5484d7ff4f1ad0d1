; The installer of the Windows programs, for one user or for all, in Spanish. scripts/windows-package runs makensis with
; VERSION, LISTS (what to put and to take away, file by file, made from the folder of the programs), ICONS and OUTPUT, and
; with QUICKLY for one that nobody keeps. Options of the installer: /S asks nothing, /CurrentUser or /AllUsers, /D=FOLDER last.
; It ends with 0 when done, 2 when it refused before touching anything, and 3 when the programs that are there could not be
; taken away.
Unicode true
Target amd64-unicode
!ifdef QUICKLY
  SetCompressor zlib
!else
  SetCompressor /SOLID lzma
!endif
ManifestDPIAware true

!define NAME "Consola de presentaciones"
!define REGISTRY "Software\Microsoft\Windows\CurrentVersion\Uninstall\xa518"
!define UNINSTALLER "desinstalar.exe"

!define MULTIUSER_MINWIN 0xA00
!define MULTIUSER_EXECUTIONLEVEL Highest
!define MULTIUSER_MUI
!define MULTIUSER_INSTALLMODE_COMMANDLINE
!define MULTIUSER_USE_PROGRAMFILES64
!define MULTIUSER_INSTALLMODE_INSTDIR "${NAME}"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_KEY "${REGISTRY}"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_VALUENAME "InstallLocation"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_KEY "${REGISTRY}"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_VALUENAME "InstallLocation"
!define MULTIUSER_INIT_TEXT_ALLUSERSNOTPOSSIBLE "Para instalar para todos los usuarios hacen falta derechos de administrador."
!include MultiUser.nsh
!include MUI2.nsh
!include FileFunc.nsh
!include LogicLib.nsh
!include WinVer.nsh

Var Datos ; the folder of the base
Var Resultado

Name "${NAME} ${VERSION}"
Caption "Instalación de ${NAME} ${VERSION}"
UninstallCaption "Desinstalación de ${NAME}"
OutFile "${OUTPUT}"
BrandingText " "
ShowInstDetails nevershow
ShowUninstDetails nevershow
VIProductVersion "${VERSION}.0"
VIAddVersionKey /LANG=0 ProductName "xa518"
VIAddVersionKey /LANG=0 ProductVersion "${VERSION}"
VIAddVersionKey /LANG=0 FileVersion "${VERSION}"
VIAddVersionKey /LANG=0 FileDescription "Instalador de ${NAME}"
VIAddVersionKey /LANG=0 LegalCopyright ""

!define MUI_ICON "${ICONS}\consola.ico"
!define MUI_UNICON "${ICONS}\consola.ico"
!define MUI_ABORTWARNING
!define MUI_WELCOMEPAGE_TITLE "${NAME} ${VERSION}"
!define MUI_WELCOMEPAGE_TEXT "Se instalará la consola de presentaciones con el módulo 0518 y xa518-lote.$\r$\n$\r$\nSi ya hay una versión instalada se pone ésta en su lugar. La base de datos, las declaraciones y las copias de respaldo no se tocan.$\r$\n$\r$\nCierre antes la consola y el módulo."
!insertmacro MUI_PAGE_WELCOME
!define MULTIUSER_INSTALLMODEPAGE_TEXT_TOP "Elija para quién se instalan los programas."
!define MULTIUSER_INSTALLMODEPAGE_TEXT_ALLUSERS "Para todos los usuarios de este equipo"
!define MULTIUSER_INSTALLMODEPAGE_TEXT_CURRENTUSER "Sólo para mí"
!insertmacro MULTIUSER_PAGE_INSTALLMODE
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!define MUI_FINISHPAGE_TITLE "La instalación terminó"
!define MUI_FINISHPAGE_TEXT "Los programas están en el menú Inicio, en '${NAME}'."
!define MUI_FINISHPAGE_RUN "$INSTDIR\consola.exe"
!define MUI_FINISHPAGE_RUN_TEXT "Abrir la consola de presentaciones"
!define MUI_FINISHPAGE_NOREBOOTSUPPORT
!insertmacro MUI_PAGE_FINISH

!define MUI_PAGE_CUSTOMFUNCTION_PRE un.NombraDatos
!define MUI_UNCONFIRMPAGE_TEXT_TOP "Se quitarán los programas. La base de datos, las declaraciones, las copias de respaldo y XA000.INI se conservan:$\r$\n$Datos"
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!define MUI_FINISHPAGE_TITLE "Los programas ya no están"
!define MUI_FINISHPAGE_TEXT "La base de datos, las declaraciones, las copias de respaldo y XA000.INI se conservaron:$\r$\n$Datos$\r$\n$\r$\nSi vuelve a instalar los programas seguirá donde estaba."
!insertmacro MUI_UNPAGE_FINISH
!insertmacro MUI_LANGUAGE "SpanishInternational"

; RefuseWith CODE TEXT: tells why, in silence by the code alone, and ends.
!macro RefuseWith code text
  MessageBox MB_OK|MB_ICONSTOP "${text}" /SD IDOK
  SetErrorLevel ${code}
  Quit
!macroend
!define RefuseWith "!insertmacro RefuseWith"

; A program that runs can't be written to. Left open it would be replaced by halves.
!macro RequireClosed prefix
Function ${prefix}ExigeCerrado
  Exch $0
  ${If} ${FileExists} "$INSTDIR\$0"
    retry:
    ClearErrors
    FileOpen $1 "$INSTDIR\$0" a
    ${If} ${Errors}
      MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$0 está abierto, o no se puede escribir en '$INSTDIR'. Ciérrelo para seguir." /SD IDCANCEL IDRETRY retry
      SetErrorLevel 2
      Quit
    ${EndIf}
    FileClose $1
  ${EndIf}
  Pop $0
FunctionEnd

Function ${prefix}ExigeCerrados
  Push consola.exe
  Call ${prefix}ExigeCerrado
  Push xa518.exe
  Call ${prefix}ExigeCerrado
  Push xa518-lote.exe
  Call ${prefix}ExigeCerrado
FunctionEnd
!macroend
!insertmacro RequireClosed ""
!insertmacro RequireClosed "un."

Function .onInit
  ${IfNot} ${AtLeastWin10}
    ${RefuseWith} 2 "Hace falta Windows 10 u 11 de 64 bits."
  ${EndIf}
  UserInfo::GetAccountType
  Pop $0
  ${GetParameters} $1
  ClearErrors
  ${GetOptions} $1 "/AllUsers" $2
  ${IfNot} ${Errors}
  ${AndIf} $0 != "Admin"
    ${RefuseWith} 2 "${MULTIUSER_INIT_TEXT_ALLUSERSNOTPOSSIBLE}"
  ${EndIf}
  StrCpy $Resultado $INSTDIR ; what /D= said; the modes would write over it
  !insertmacro MULTIUSER_INIT
  ${If} $Resultado != ""
    StrCpy $INSTDIR $Resultado
  ${EndIf}
FunctionEnd

; The earlier programs go by their own uninstaller, which knows what it had brought. The data aren't among that.
Function QuitaAnterior
  ReadRegStr $0 SHCTX "${REGISTRY}" "InstallLocation"
  ${If} $0 == ""
  ${OrIfNot} ${FileExists} "$0\${UNINSTALLER}"
    Return
  ${EndIf}
  ExecWait '"$0\${UNINSTALLER}" /S /$MultiUser.InstallMode _?=$0' $Resultado
  ${If} $Resultado <> 0
    ${RefuseWith} 3 "No se pudo quitar la versión que está en '$0' ($Resultado). Cierre los programas y vuelva a intentarlo."
  ${EndIf}
  Delete "$0\${UNINSTALLER}" ; run in its place, it couldn't take itself away
  RMDir "$0"
FunctionEnd

Section "Programas"
  Call ExigeCerrados
  Call QuitaAnterior
  !include "${LISTS}/put.nsh"
  SetOutPath $INSTDIR
  WriteUninstaller "$INSTDIR\${UNINSTALLER}"

  CreateDirectory "$SMPROGRAMS\${NAME}"
  CreateShortcut "$SMPROGRAMS\${NAME}\${NAME}.lnk" "$INSTDIR\consola.exe"
  CreateShortcut "$SMPROGRAMS\${NAME}\Léame.lnk" "$INSTDIR\LEEME.txt"
  CreateShortcut "$SMPROGRAMS\${NAME}\Desinstalar.lnk" "$INSTDIR\${UNINSTALLER}" "/$MultiUser.InstallMode"

  WriteRegStr SHCTX "${REGISTRY}" DisplayName "${NAME} y módulo 0518"
  WriteRegStr SHCTX "${REGISTRY}" DisplayVersion "${VERSION}"
  WriteRegStr SHCTX "${REGISTRY}" DisplayIcon "$INSTDIR\consola.exe"
  WriteRegStr SHCTX "${REGISTRY}" Publisher "xa518"
  WriteRegStr SHCTX "${REGISTRY}" InstallLocation "$INSTDIR"
  WriteRegStr SHCTX "${REGISTRY}" UninstallString '"$INSTDIR\${UNINSTALLER}" /$MultiUser.InstallMode'
  WriteRegStr SHCTX "${REGISTRY}" QuietUninstallString '"$INSTDIR\${UNINSTALLER}" /$MultiUser.InstallMode /S'
  WriteRegDWORD SHCTX "${REGISTRY}" NoModify 1
  WriteRegDWORD SHCTX "${REGISTRY}" NoRepair 1
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  IntFmt $0 "0x%08X" $0
  WriteRegDWORD SHCTX "${REGISTRY}" EstimatedSize "$0"
SectionEnd

Function un.onInit
  !insertmacro MULTIUSER_UNINIT
FunctionEnd

; Where the data lie, as the programs themselves are told: by the person's own file where the account may not write the shared
; one.
Function un.NombraDatos
  ReadEnvStr $0 LOCALAPPDATA
  ReadINIStr $Datos "$0\VirtualStore\Windows\XA000.INI" "Options" "SysPath"
  ${If} $Datos == ""
    ReadINIStr $Datos "XA000.INI" "Options" "SysPath"
  ${EndIf}
FunctionEnd

Section "Uninstall"
  Call un.ExigeCerrados
  ClearErrors
  !include "${LISTS}/take.nsh"
  ${If} ${Errors}
    ${RefuseWith} 3 "No se pudieron quitar todos los programas de '$INSTDIR'. Ciérrelos y vuelva a intentarlo."
  ${EndIf}
  !include "${LISTS}/take_folders.nsh"
  Delete "$INSTDIR\${UNINSTALLER}"
  RMDir "$INSTDIR"
  Delete "$SMPROGRAMS\${NAME}\${NAME}.lnk"
  Delete "$SMPROGRAMS\${NAME}\Léame.lnk"
  Delete "$SMPROGRAMS\${NAME}\Desinstalar.lnk"
  RMDir "$SMPROGRAMS\${NAME}"
  DeleteRegKey SHCTX "${REGISTRY}"
SectionEnd
