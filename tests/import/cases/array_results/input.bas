Function Words(ByVal text As String) As String()
    Words = Split(text, " ")
End Function
Public Property Get Sizes(Optional ByVal first As Long) As Long() ' by (index)
End Property
Sub Fill(values() As Long, ByVal with As Long) : Dim i(3)
End Sub
