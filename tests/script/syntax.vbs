Function Output
    If True Then
        Output = 1
End Function
' expect: error 1012 Expected 'If' at line 4

'----
Function Output
    Output = 1
' expect: error 1014 Expected 'End' at line 5

'----
Function Output
    Output = 1
End Sub
' expect: error 1015 Expected 'Function' at line 3

'----
Sub Output
End Function
' expect: error 1016 Expected 'Sub' at line 2

'----
x = (1 + 2
' expect: error 1006 Expected ')' at line 1

'----
ReDim a
' expect: error 1005 Expected '(' at line 1

'----
[open = 1
' expect: error 1007 Expected ']' at line 1

'----
Dim 5
' expect: error 1010 Expected identifier at line 1

'----
Set x
' expect: error 1011 Expected '=' at line 1

'----
For i = 1
Next
' expect: error 1013 Expected 'To' at line 1

'----
If 1 = 1
    x = 1
End If
' expect: error 1017 Expected 'Then' at line 1

'----
While True
    x = 1

' expect: error 1018 Expected 'Wend' at line 6

'----
Do
    x = 1
Next
' expect: error 1019 Expected 'Loop' at line 3

'----
For i = 1 To 2
    x = 1
Loop
' expect: error 1020 Expected 'Next' at line 3

'----
Select 5
End Select
' expect: error 1021 Expected 'Case' at line 1

'----
Select Case 5
    Case 1
End If
' expect: error 1022 Expected 'Select' at line 3

'----
x = 1 +
' expect: error 1023 Expected expression at line 1

'----
x = = 1
' expect: error 1023 Expected expression at line 1

'----
Wend
' expect: error 1024 Expected statement at line 1

'----
x = 1 2
' expect: error 1025 Expected end of statement at line 1

'----
For i = 1 To 2
Next i
' expect: error 1025 Expected end of statement at line 2

'----
Dim n
n = 3
Dim a(n)
' expect: error 1026 Expected integer constant at line 3

'----
Do Forever
Loop
' expect: error 1027 Expected 'While' or 'Until' at line 1

'----
aaaaaaaaaabbbbbbbbbbaaaaaaaaaabbbbbbbbbbaaaaaaaaaabbbbbbbbbbaaaaaaaaaabbbbbbbbbbaaaaaaaaaabbbbbbbbbbaaaaaaaaaabbbbbbbbbbaaaaaaaaaabbbbbbbbbbaaaaaaaaaabbbbbbbbbbaaaaaaaaaabbbbbbbbbbaaaaaaaaaabbbbbbbbbbaaaaaaaaaabbbbbbbbbbaaaaaaaaaabbbbbbbbbbaaaaaaaaaabbbbbbbbbbaaaaaa = 1
' expect: error 1030 Identifier too long at line 1

'----
x = 1e
' expect: error 1031 Invalid number at line 1

'----
x = 1E999
' expect: error 1031 Invalid number at line 1

'----
x = 5 ? 3
' expect: error 1032 Invalid character at line 1

'----
x = 1
x = "open
' expect: error 1033 Unterminated string constant at line 2

'----
Loop
' expect: error 1038 'loop' without 'do' at line 1

'----
Exit For
' expect: error 1039 Invalid 'exit' statement at line 1

'----
Function Output
    Exit Sub
End Function
' expect: error 1039 Invalid 'exit' statement at line 2

'----
Do
    Exit For
Loop
' expect: error 1039 Invalid 'exit' statement at line 2

'----
For a(1) = 1 To 2
Next
' expect: error 1040 Invalid 'for' loop control variable at line 1

'----
Dim a
Dim b, A
' expect: error 1041 Name redefined at line 2

'----
Function Output(x)
    Dim x
End Function
' expect: error 1041 Name redefined at line 2

'----
Sub a
End Sub
Sub A
End Sub
' expect: error 1041 Name redefined at line 3

'----
Const k = 1
Dim k
' expect: error 1041 Name redefined at line 2

'----
Sub Two(a, b)
End Sub
Two(1, 2)
' expect: error 1044 Cannot use parentheses when calling a Sub at line 3

'----
Const k = 1 + x
' expect: error 1045 Expected literal constant at line 1

'----
For Each x Of y
Next
' expect: error 1046 Expected 'In' at line 1

'----
Next
' expect: error 1055 Unexpected 'Next' at line 1

'----
On Error GoTo here
' expect: error 1002 Syntax error at line 1

'----
If True Then
    Function Inner
    End Function
End If
' expect: error 1002 Syntax error at line 2

'----
x = 1
Option Explicit
' expect: error 1024 Expected statement at line 2

'----
Select Case 1
    Case Else
    Case 2
End Select
' expect: error 1002 Syntax error at line 3

'----
Class Car
End Class
' expect: error 1002 Syntax error at line 1

'---- a line that goes on counts as several
x = 1 + _
    2 + _
    3
y = 4 5
' expect: error 1025 Expected end of statement at line 4

'---- a fault at the end of many lines


Function Output


    Output = Sqr(


End Function
' expect: error 1023 Expected expression at line 6
