' Copies yesterday's tables into the archive.
' Author: Tomas Okafor
' Created: 2003-01-20
' Keywords: archive, copy, nightly
Option Explicit

Dim fileSystem
Set fileSystem = CreateObject("Scripting.FileSystemObject")
CopyTables "tables", "archive"


' Copies each file that the archive does not have yet.
Sub CopyTables(sourceFolder, targetFolder)
    Dim file
    For Each file In fileSystem.GetFolder(sourceFolder).Files
        If Not IsArchived(file.Name, targetFolder) Then file.Copy targetFolder & "\"
    Next
End Sub


Function IsArchived(fileName, targetFolder)
    IsArchived = fileSystem.FileExists(targetFolder & "\" & fileName)
End Function



