<%@language=JScript%>
<%
/* Adds. */
function add(a, b) {
    return a + b;
}

function row(text) {
%>
<tr><td><%= text %></td></tr>
<%
}
%>
<p><%= add(1, 2) %></p>
