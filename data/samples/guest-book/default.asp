<%@ Language="VBScript" %>
<!--#include file="entries.inc"-->
<html>
<head><title>Guest book</title></head>
<body>
<%
ShowEntries LoadEntries("guests.txt")

' One paragraph for each entry.
' Author: Tomas Okafor
' Keywords: guest book, HTML
Sub ShowEntries(entries)
    Dim entry
    For Each entry In entries
%>
<p><%= Server.HTMLEncode(entry) %></p>
<%
    Next
End Sub
%>
<script language="JavaScript">
// Nobody may sign with an empty name.
function checkName(form) {
    return form.name.value.length > 0;
}
</script>
<form method="post" onsubmit="return checkName(this)"><input name="name"></form>
</body>
</html>
