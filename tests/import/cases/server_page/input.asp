<%@ Language="VBScript" %>
<!--#include file="common.inc"-->
<html>
<%
' Greets the visitor.
' Author: Ann Lee
Function Greeting(name)
    Greeting = "Hello " & name
End Function

Sub ShowRow(row)
%>
    <td><%= row %></td>
<% If row > 1 Then %>
    <td>&nbsp;</td>
<% End If
End Sub

Sub Whole()
%>
<b>bold</b>
<%
End Sub
%>
<script language="JavaScript">
// Checks the form; "<%= Request("x") %>" is its start.
function check(form) {
    var start = "<%= Request("x") %>";
    <% If debug Then %>
    alert(start);
    <% End If %>
    return form.name.value != start;
}
function broken(
</script>
<script language="VBScript">
Sub cmdOk_onClick
    MsgBox "OK"
End Sub
</script>
<script runat="server" language="vbscript">
Sub Application_OnStart
    Application("visitors") = 0
End Sub
</script>
<% Sub Inline : End Sub %>
<!-- <script>function hidden() { }</script> -->
<script type="application/json">{"function": "none() { }"}</script>
<script>
function last() { }
</script>
</html>
