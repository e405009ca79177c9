VERSION 5.00
Begin VB.Form frmOrder 
   Caption         =   "Sub Main()"
   ClientHeight    =   3195
   Begin VB.CommandButton cmdOk 
      Caption         =   "&OK"
      BeginProperty Font 
         Name            =   "Tahoma"
      EndProperty
   End
End
Attribute VB_Name = "frmOrder"
Attribute VB_GlobalNameSpace = False
Attribute VB_PredeclaredId = True
'******************************
' Written by: A. N. Other
'******************************

Option Explicit

Private mCount As Long ' of orders

Public Event Changed()

Private Sub cmdOk_Click()
    RaiseEvent Changed
End Sub

' What is shown.
Public Property Get Count() As Long
Attribute Count.VB_Description = "How many there are"
Attribute Count.VB_UserMemId = 0
    Count = mCount
End Property

Private Sub Form_Load
    mCount = 0
End Sub
