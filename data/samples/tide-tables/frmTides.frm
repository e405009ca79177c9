VERSION 5.00
Begin VB.Form frmTides 
   Caption         =   "Tides"
   ClientHeight    =   3195
   ClientWidth     =   4680
   Begin VB.CommandButton cmdPrint 
      Caption         =   "&Print"
      Height          =   375
      Left            =   3240
      Top             =   2640
      Width           =   1215
   End
   Begin VB.ListBox lstHeights 
      Height          =   2400
      Left            =   120
      Top             =   120
      Width           =   4335
   End
End
Attribute VB_Name = "frmTides"
Attribute VB_PredeclaredId = True
Option Explicit

Private mHarbour As clsHarbour


Private Sub Form_Load()
    Set mHarbour = New clsHarbour
    mHarbour.Name = "Søndre Havn"
    mHarbour.MeanRange = 1.8
    FillHeights
End Sub


' One line for each hour of half a day.
Private Sub FillHeights()
    Dim hour As Integer
    lstHeights.Clear
    For hour = 0 To 12
        lstHeights.AddItem hour & " h: " & Format$(mHarbour.HeightAfterHighWater(hour), "0.00") & " m"
    Next hour
End Sub


#If PrintingAllowed Then
' Prints what the list shows.
' Keywords: print
Private Sub cmdPrint_Click()
    Dim row As Integer
    For row = 0 To lstHeights.ListCount - 1
        Printer.Print lstHeights.List(row)
    Next row
    Printer.EndDoc
End Sub


#Else
Private Sub cmdPrint_Click()
    MsgBox "Printing is switched off."
End Sub


#End If
