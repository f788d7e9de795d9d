' On Error and Err.
Function PassedOver ' expect: String 11 Division by zero
    On Error Resume Next
    PassedOver = 1 / 0
    PassedOver = Err.Number & " " & Err.Description
End Function
Function NothingWrong ' expect: Long 0
    On Error Resume Next
    NothingWrong = Err.Number
End Function
Function FailedAssignmentStoresNothing ' expect: Integer 5
    On Error Resume Next
    FailedAssignmentStoresNothing = 5
    FailedAssignmentStoresNothing = CInt("x")
End Function
Function NotPassedOverAgain ' expect: error 11 Division by zero at +4
    On Error Resume Next
    NotPassedOverAgain = 1 / 0
    On Error GoTo 0
    NotPassedOverAgain = 1 / 0
End Function
Function Cleared ' expect: String 13 0
    On Error Resume Next
    Cleared = CInt("x")
    Cleared = Err.Number
    Err.Clear
    Cleared = Cleared & " " & Err.Number & Err.Description
End Function
Function ClearedByOnError ' expect: Long 0
    On Error Resume Next
    ClearedByOnError = CInt("x")
    On Error Resume Next
    ClearedByOnError = Err.Number
End Function
Function Raised ' expect: error 5 Invalid procedure call or argument at +1
    Err.Raise 5
End Function
Function RaisedOwn ' expect: error 1001 too fast at +1
    Err.Raise 1001, "me", "too fast"
End Function
Function RaisedAndCaught ' expect: String -2147221503 me: too slow
    On Error Resume Next
    Err.Raise vbObjectError + 1, "me", "too slow"
    RaisedAndCaught = Err.Number & " " & Err.Source & ": " & Err.Description
End Function
Function RaisedNothing ' expect: error 5 Invalid procedure call or argument at +1
    Err.Raise 0
End Function
Function RaisedUnknown ' expect: String Unknown runtime error
    On Error Resume Next
    Err.Raise 12345
    RaisedUnknown = Err.Description
End Function
Function ErrIsItsNumber ' expect: Boolean True
    On Error Resume Next
    CInt "x"
    ErrIsItsNumber = Err = 13
    If Err Then ErrIsItsNumber = ErrIsItsNumber And True
End Function
Function ErrIsWritten ' expect: String 7 mine
    Err.Number = 7
    Err.Description = "mine"
    ErrIsWritten = Err.Number & " " & Err.Description
End Function
Sub Fails
    Dim x
    x = 1 / 0
    reached = True
End Sub
Dim reached
Function CalleeIsLeft ' expect: String 11 Empty
    On Error Resume Next
    Fails
    CalleeIsLeft = Err.Number & " " & TypeName(reached)
End Function
Sub FailsAndGoesOn
    On Error Resume Next
    Dim x
    x = 1 / 0
    reached = True
End Sub
Function CalleeGoesOn ' expect: String 11 True
    FailsAndGoesOn
    CalleeGoesOn = Err.Number & " " & reached
End Function
Function HandlerIsTheCallees ' expect: error 13 Type mismatch at +2
    FailsAndGoesOn
    HandlerIsTheCallees = CInt("x")
End Function
Sub FailsAndExits
    On Error Resume Next
    Dim x
    x = 1 / 0
    Exit Sub
End Sub
Function ExitClears ' expect: Long 0
    FailsAndExits
    ExitClears = Err.Number
End Function
Function FailedCondition ' expect: String then
    On Error Resume Next
    If 1 / 0 Then
        FailedCondition = "then"
    Else
        FailedCondition = "else"
    End If
End Function
Function FailedForHead ' expect: String once 92
    Dim i
    On Error Resume Next
    For i = 1 To CInt("x")
        FailedForHead = FailedForHead & "once"
    Next
    FailedForHead = FailedForHead & " " & Err.Number
End Function
Function FailedCase ' expect: Integer 3
    On Error Resume Next
    Select Case 1 / 0
        Case 1
            FailedCase = 1
    End Select
    FailedCase = 3
End Function
Function FailsInLoop ' expect: Integer 3
    Dim i, ignored
    On Error Resume Next
    For i = 1 To 3
        ignored = 1 / 0
        FailsInLoop = FailsInLoop + 1
    Next
End Function
Function InBlock ' expect: Integer 2
    If True Then
        On Error Resume Next
        InBlock = 1
        InBlock = 1 / 0
    End If
    InBlock = InBlock + 1
    Err.Raise 9
End Function
Function NoSuchMember ' expect: error 438 Object doesn't support this property or method: 'Throw' at +1
    Err.Throw 5
End Function
Function StackIsCaught ' expect: Long 28
    On Error Resume Next
    Endless
    StackIsCaught = Err.Number
End Function
Sub Endless
    Endless
End Sub
Function NoMemoryIsCaught ' expect: Long 7
    On Error Resume Next
    ReDim a(50000000)
    NoMemoryIsCaught = Err.Number
End Function

'---- errors of the main program stop it
Dim a
a = 1
a = 1 / 0
' expect: error 11 Division by zero at line 3

'---- no way out of the script
Function Create ' expect: error 429 ActiveX component can't create object at +1
    Set Create = CreateObject("Scripting.FileSystemObject")
End Function
Function GetIt ' expect: error 429 ActiveX component can't create object at +1
    Set GetIt = GetObject("winmgmts:")
End Function
Function Fresh ' expect: error 506 Class not defined: 'RegExp' at +1
    Set Fresh = New RegExp
End Function
Function Ask ' expect: error 70 Permission denied at +1
    MsgBox "hello"
End Function
Function AskText ' expect: error 70 Permission denied at +1
    AskText = InputBox("name")
End Function
Function ShellNames ' expect: error 424 Object required at +1
    WScript.Echo "hello"
End Function
Function RunText ' expect: error 13 Type mismatch: 'Eval' at +1
    RunText = Eval("1+1")
End Function

'---- memory and text space
Function HugeText ' expect: error 14 Out of string space at +1
    HugeText = Len(String(2000000000, "x"))
End Function
Function HugeSpace ' expect: error 14 Out of string space at +1
    HugeSpace = Len(Space(40000000))
End Function
Function TextThatGrows ' expect: error 7 Out of memory at +4
    Dim s
    s = "x"
    Do
        s = s & s
    Loop
End Function
Function MuchHeld ' expect: error 7 Out of memory at +3
    Dim a(1000), i
    For i = 0 To 1000
        a(i) = Space(1000000)
    Next
End Function
Function GivenBack ' expect: Long 1000000
    Dim i, s
    For i = 1 To 80
        s = Space(1000000)
    Next
    GivenBack = Len(s)
End Function
Function NestedArrays ' expect: Integer 1
    Dim a, i
    For i = 1 To 100000
        a = Array(a)
    Next
    NestedArrays = 1
End Function
