Attribute VB_Name = "modWindow"
Option Explicit

#If Win64 Then
Private Declare PtrSafe Sub Beep Lib "kernel32" ()
#Else
Private Declare Sub Beep Lib "kernel32" ()
#End If

#If Win64 Then
' Moves a window.
Public Sub MoveTo(ByVal window As Long)
    Place window, 1
End Sub
#Else

' Moves a window, the old way.
Public Sub MoveTo(ByVal window As Long)
    Place window, 0
End Sub

#End If

' One body, two heads.
#If Win64 Then
Public Function Owner(ByVal window As LongPtr) As LongPtr
#Else
Public Function Owner(ByVal window As Long) As Long
#End If
    Owner = 0
End Function
#If Debugging Then


Sub Trace()
End Sub
#end if
' Last words.
