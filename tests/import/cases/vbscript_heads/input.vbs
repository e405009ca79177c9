' Sends the report.
Option Explicit

Dim sent
Main

Sub Main
    If Ready Then Send "a"
End Sub
' True at night.
Function Ready 'or always
    Ready = True
End Function

Class Mail
    Private mTo
    Public Property Get Recipient
        Recipient = mTo
    End Property

    Public Sub Send(text)
        sent = text
    End Sub
End Class
