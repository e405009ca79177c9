' Helpers for files.
' Written by: A. N. Other

' True when it is there.
Public Function Exists(ByVal path As String) As Boolean
    ' No Option  Explicit here.
    Exists = Len(Dir$(path)) > 0
End Function


Public Sub Remove(ByVal path As String)
    Kill path
End Sub


