; makensis -DVERSION=... -DFOLDER=... -DOUTPUT=... : the installer of the folder that also becomes the zip.
Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
!include "MUI2.nsh"
!include "x64.nsh"

!define NAME "Cadastro de Pessoas"
!define KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\vorta-pessoas"

Name "${NAME}"
OutFile "${OUTPUT}"
InstallDir "$PROGRAMFILES64\Vorta Pessoas"
InstallDirRegKey HKLM "${KEY}" "InstallLocation"
RequestExecutionLevel admin

VIProductVersion "${VERSION}.0"
VIAddVersionKey /LANG=1046 "ProductName" "${NAME}"
VIAddVersionKey /LANG=1046 "CompanyName" "Nexoria"
VIAddVersionKey /LANG=1046 "FileDescription" "Instalador do ${NAME}"
VIAddVersionKey /LANG=1046 "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=1046 "ProductVersion" "${VERSION}"
VIAddVersionKey /LANG=1046 "LegalCopyright" "Nexoria"

!define MUI_ICON "${FOLDER}\vorta-pessoas.ico"
!define MUI_UNICON "${FOLDER}\vorta-pessoas.ico"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "PortugueseBR"

Section
  SetShellVarContext all
  SetOutPath "$INSTDIR"
  File /r "${FOLDER}\*.*"
  CreateShortcut "$SMPROGRAMS\${NAME}.lnk" "$INSTDIR\pessoas.exe" "1^1^PRD^False^" "$INSTDIR\vorta-pessoas.ico"
  WriteUninstaller "$INSTDIR\desinstalar.exe"
  WriteRegStr HKLM "${KEY}" "DisplayName" "${NAME}"
  WriteRegStr HKLM "${KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKLM "${KEY}" "DisplayIcon" "$INSTDIR\vorta-pessoas.ico"
  WriteRegStr HKLM "${KEY}" "Publisher" "Nexoria"
  WriteRegStr HKLM "${KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKLM "${KEY}" "UninstallString" '"$INSTDIR\desinstalar.exe"'
  WriteRegDWORD HKLM "${KEY}" "NoModify" 1
  WriteRegDWORD HKLM "${KEY}" "NoRepair" 1
SectionEnd

; The programs and their parts go; an installation with its bases lies elsewhere and stays, and so does what an administrator has put
; beside the programs, as the engine's library.
Section "Uninstall"
  SetShellVarContext all
  Delete "$SMPROGRAMS\${NAME}.lnk"
!include "${LIST}"
  Delete "$INSTDIR\desinstalar.exe"
  RMDir "$INSTDIR"
  DeleteRegKey HKLM "${KEY}"
SectionEnd
