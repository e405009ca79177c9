Option Explicit
Public Function Half(ByVal n As Long) As Long
    Half = n \ 2
End Function 'Half

Public Function Twice(ByVal n As Long) As Long
    Twice = n * 2
End Function

Sub Main()
End Sub 'Main
