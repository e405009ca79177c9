Attribute VB_Name = "modCalendar"

'**********************************************************************
' Days, months and years of the Gregorian calendar.
' Authors: Nora Winther, Tomas Okafor
' Created: 2001-03-14
' Keywords: calendar, leap year, month, day
'**********************************************************************
Option Explicit

Private Const DaysInShortMonth As Integer = 30


' Every fourth year, but of the turns of a century only every fourth.
' Keywords: leap year, Gregorian
Public Function IsLeapYear(ByVal yearNumber As Integer) As Boolean
    IsLeapYear = (yearNumber Mod 4 = 0 And yearNumber Mod 100 <> 0) _
        Or yearNumber Mod 400 = 0
End Function


' The length of a month in days.
' Author: Tomas Okafor
Public Function DaysInMonth(ByVal monthNumber As Integer, _
                            ByVal yearNumber As Integer) As Integer
    Select Case monthNumber
        Case 4, 6, 9, 11
            DaysInMonth = DaysInShortMonth
        Case 2
            DaysInMonth = IIf(IsLeapYear(yearNumber), 29, 28)
        Case Else
            DaysInMonth = 31
    End Select
End Function


' 1 for the first of January.
Public Function DayOfYear(ByVal someDay As Date) As Integer
    DayOfYear = someDay - DateSerial(Year(someDay), 1, 1) + 1
End Function



