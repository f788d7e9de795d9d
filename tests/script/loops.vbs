' For, For Each, Do, While and their ways out.
Function Sum ' expect: Integer 15
    Dim i
    For i = 1 To 5
        Sum = Sum + i
    Next
End Function
Function AfterLoop ' expect: Integer 6
    Dim i
    For i = 1 To 5
    Next
    AfterLoop = i
End Function
Function StepBack ' expect: String 531
    Dim i
    For i = 5 To 1 Step -2
        StepBack = StepBack & i
    Next
End Function
Function StepFraction ' expect: Integer 4
    Dim i, n
    For i = 0 To 0.75 Step 0.25
        n = n + 1
    Next
    StepFraction = n
End Function
Function NotOnce ' expect: Empty
    Dim i
    For i = 2 To 1
        NotOnce = i
    Next
End Function
Function LimitOnce ' expect: Integer 3
    Dim i, last
    last = 3
    For i = 1 To last
        last = 100
        LimitOnce = i
    Next
End Function
Function CounterMoves ' expect: Integer 3
    Dim i
    For i = 1 To 5
        i = i + 1
        CounterMoves = CounterMoves + 1
    Next
End Function
Function CounterWidens ' expect: Long 32768
    Dim i
    For i = 32766 To 32767
    Next
    CounterWidens = i
End Function
Function ForExit ' expect: Integer 3
    Dim i
    For i = 1 To 10
        If i = 3 Then Exit For
    Next
    ForExit = i
End Function
Function ForExitInner ' expect: Integer 6
    Dim i, j
    For i = 1 To 3
        For j = 1 To 10
            If j = 3 Then Exit For
            ForExitInner = ForExitInner + 1
        Next
    Next
End Function
Function Each1 ' expect: String abc
    Dim item
    For Each item In Array("a", "b", "c")
        Each1 = Each1 & item
    Next
End Function
Function EachExit ' expect: String b
    Dim item
    For Each item In Array("a", "b", "c")
        EachExit = item
        If item = "b" Then Exit For
    Next
End Function
Function EachOfTwoDimensions ' expect: String 1234
    Dim a(1, 1), item
    a(0, 0) = 1 : a(1, 0) = 2 : a(0, 1) = 3 : a(1, 1) = 4
    For Each item In a
        EachOfTwoDimensions = EachOfTwoDimensions & item
    Next
End Function
Function EachWantsCollection ' expect: error 451 Object not a collection at +2
    Dim item
    For Each item In 5
    Next
End Function
Function DoWhile ' expect: Integer 5
    Do While DoWhile < 5
        DoWhile = DoWhile + 1
    Loop
End Function
Function DoUntil ' expect: Integer 5
    Do Until DoUntil = 5
        DoUntil = DoUntil + 1
    Loop
End Function
Function LoopWhile ' expect: Integer 1
    Do
        LoopWhile = LoopWhile + 1
    Loop While LoopWhile < 0
End Function
Function LoopUntil ' expect: Integer 3
    Do
        LoopUntil = LoopUntil + 1
    Loop Until LoopUntil >= 3
End Function
Function DoExit ' expect: Integer 4
    Do
        DoExit = DoExit + 1
        If DoExit = 4 Then Exit Do
    Loop
End Function
Function DoExitFromFor ' expect: String 1 2 out
    Dim i
    Do
        For i = 1 To 5
            If i = 3 Then Exit Do
            DoExitFromFor = DoExitFromFor & i & " "
        Next
    Loop
    DoExitFromFor = DoExitFromFor & "out"
End Function
Function WhileWend ' expect: Integer 3
    While WhileWend < 3
        WhileWend = WhileWend + 1
    Wend
End Function
Function ExitDoThroughWhile ' expect: Integer 3
    Do
        While True
            ExitDoThroughWhile = ExitDoThroughWhile + 1
            If ExitDoThroughWhile = 3 Then Exit Do
        Wend
        ExitDoThroughWhile = 99
    Loop
End Function
Function ExitFromLoops ' expect: Integer 7
    Dim i
    Do
        For i = 1 To 100
            If i = 7 Then
                ExitFromLoops = i
                Exit Function
            End If
        Next
    Loop
End Function
Function LoopLine ' expect: error 11 Division by zero at +3
    Do
        LoopLine = 1
    Loop While 1 / 0
End Function
Function NullAsLimit ' expect: error 94 Invalid use of Null at +2
    Dim i
    For i = 1 To Null
    Next
End Function
Function TextAsStart ' expect: error 13 Type mismatch at +2
    Dim i
    For i = "one" To 3
    Next
End Function
'---- A failing condition goes on with what stands behind it.
Function FailingAtTheEnd ' expect: Integer 1
    On Error Resume Next
    Do
        FailingAtTheEnd = FailingAtTheEnd + 1
        If FailingAtTheEnd > 5 Then Exit Do
    Loop While 1 / 0
End Function
Function FailingUntilAtTheStart ' expect: Integer 3
    On Error Resume Next
    Do Until 1 / 0
        FailingUntilAtTheStart = FailingUntilAtTheStart + 1
        If FailingUntilAtTheStart = 3 Then Exit Do
    Loop
End Function
