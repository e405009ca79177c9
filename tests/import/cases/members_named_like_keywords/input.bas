Attribute VB_Name = "modTypes"

Private Type Entry
    Name As String
    Property As String  ' of (what)
    Function As Long
    Sub As Entry
End Type

Private Enum Kind
    Sub = 1
    Function 'and this
    Property
End Enum

Property Get Count() As Long
    Count = 1
End Property
