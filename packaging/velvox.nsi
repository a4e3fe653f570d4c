; The installer: for the current user only, without administrator rights. tools/package defines
; VERSION, FILE_VERSION, FILES (the folder to install), ICON, KILOBYTES and OUTPUT.
Unicode true
SetCompressor /SOLID lzma
RequestExecutionLevel user
ManifestDPIAware true
Name "Velvox ${VERSION}"
OutFile "${OUTPUT}"
InstallDir "$LOCALAPPDATA\Programs\Velvox"
InstallDirRegKey HKCU "Software\Microsoft\Windows\CurrentVersion\Uninstall\Velvox" "InstallLocation"
BrandingText " "
Icon "${ICON}"
UninstallIcon "${ICON}"
VIProductVersion "${FILE_VERSION}"
VIAddVersionKey "ProductName" "Velvox"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "FileVersion" "${FILE_VERSION}"
VIAddVersionKey "FileDescription" "Velvox installer"
VIAddVersionKey "CompanyName" "The Velvox authors"
VIAddVersionKey "LegalCopyright" "Copyright (c) 2026 the Velvox authors"

!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\Velvox"

Page directory
Page instfiles
UninstPage uninstConfirm
UninstPage instfiles

Section
    SetOutPath "$INSTDIR"
    File "${FILES}/velvox.exe"
    File "${FILES}/velvox-gallery.exe"
    File "${FILES}/readme.txt"
    WriteUninstaller "$INSTDIR\uninstall.exe"
    CreateShortcut "$SMPROGRAMS\Velvox.lnk" "$INSTDIR\velvox.exe"
    WriteRegStr HKCU "${UNINSTALL}" "DisplayName" "Velvox"
    WriteRegStr HKCU "${UNINSTALL}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKCU "${UNINSTALL}" "DisplayIcon" "$INSTDIR\velvox.exe"
    WriteRegStr HKCU "${UNINSTALL}" "Publisher" "The Velvox authors"
    WriteRegStr HKCU "${UNINSTALL}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKCU "${UNINSTALL}" "UninstallString" '"$INSTDIR\uninstall.exe"'
    WriteRegStr HKCU "${UNINSTALL}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
    WriteRegDWORD HKCU "${UNINSTALL}" "EstimatedSize" ${KILOBYTES}
    WriteRegDWORD HKCU "${UNINSTALL}" "NoModify" 1
    WriteRegDWORD HKCU "${UNINSTALL}" "NoRepair" 1
SectionEnd

; Removes only what was installed. Files that the user has added stay, with the folder.
Section "Uninstall"
    Delete "$INSTDIR\velvox.exe"
    Delete "$INSTDIR\velvox-gallery.exe"
    Delete "$INSTDIR\readme.txt"
    Delete "$INSTDIR\uninstall.exe"
    RMDir "$INSTDIR"
    RMDir "$LOCALAPPDATA\Programs" ; removed only if it is empty
    Delete "$SMPROGRAMS\Velvox.lnk"
    DeleteRegKey HKCU "${UNINSTALL}"
SectionEnd
