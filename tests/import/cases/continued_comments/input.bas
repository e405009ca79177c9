Attribute VB_Name = "modText"
' About texts, _
  in two lines
Option Explicit

' Says it _
Sub NotASub()
' and goes on.
Sub Speak(ByVal text As String, _
          Optional ByVal twice As Boolean = False)
    ' Print _
End Sub
    Print text
End Sub

'________________________________
Sub Swallowed()
End Sub
