' Nothing here,

' and nothing there.

