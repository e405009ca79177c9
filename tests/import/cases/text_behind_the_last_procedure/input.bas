Sub A()
End Sub



' Nothing follows.

