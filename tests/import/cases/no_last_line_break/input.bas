Sub A()
End Sub

' Ends with a comment.
Sub B()
    x = 1
End Sub