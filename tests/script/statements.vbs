Option Explicit
' Assignment, constants, comments, lines.
Dim shared, other
Const kLimit = 5, kName = "gear", kBelow = -3
Public seen
Private hidden
shared = 1 : other = 2
Rem a remark of the old kind
Function Assigned ' expect: Integer 3
    Dim a
    Let a = 1
    a = a + 2   ' behind a statement
    Assigned = a
End Function
Function Globals ' expect: Integer 3
    Globals = shared + other
End Function
Function GlobalsAreWritten ' expect: Integer 10
    shared = 10
    GlobalsAreWritten = shared
End Function
Function LocalsHideGlobals ' expect: Integer 1
    Dim other
    other = 99
    LocalsHideGlobals = shared
End Function
Function ConstantsStand ' expect: String gear5-3
    ConstantsStand = kName & kLimit & kBelow
End Function
Function ConstantIsNotWritten ' expect: error 501 Illegal assignment: 'kLimit' at +1
    kLimit = 6
End Function
Function LocalConstant ' expect: Double 3.14
    Const kPi = 3.14
    LocalConstant = kPi
End Function
Function Joined ' expect: Integer 6
    Dim a, b : a = 1 : b = 2 : Joined = a + b + _
        3
End Function
Function Undeclared ' expect: error 500 Variable is undefined: 'typo' at +2
    Undeclared = 1
    typo = 2
End Function
Function UndeclaredRead ' expect: error 500 Variable is undefined: 'typo' at +1
    UndeclaredRead = typo + 1
End Function
Function DimBehindUse ' expect: Integer 2
    later = 2
    Dim later
    DimBehindUse = later
End Function
Function WholeLine ' expect: Integer 1
    Rem WholeLine = 2
    WholeLine = 1 : Rem WholeLine = 3
    Stop
End Function
Function Objects ' expect: Single 620
    Dim o
    Set o = Math
    Objects = o.Mass
End Function
Function SetWantsObject ' expect: error 424 Object required at +2
    Dim o
    Set o = 5
End Function
Function ObjectWithoutSet ' expect: error 438 Object doesn't support this property or method at +2
    Dim o
    o = Math
End Function
Function NothingWithoutSet ' expect: error 91 Object variable not set at +2
    Dim o
    o = Nothing
End Function
Function NoObject ' expect: error 424 Object required at +2
    Dim o
    NoObject = o.Mass
End Function
Function ObjectNotSet ' expect: error 91 Object variable not set at +3
    Dim o
    Set o = Nothing
    ObjectNotSet = o.Mass
End Function

'---- without declarations
Function Implicit ' expect: Integer 3
    a = 1
    b = a + 2
    Implicit = b
End Function
Function ImplicitIsLocal ' expect: Empty
    Other
    ImplicitIsLocal = mine
End Function
Sub Other
    mine = 7
End Sub
fromMain = 11
Function ImplicitGlobal ' expect: Integer 11
    ImplicitGlobal = fromMain
End Function

'---- If
Function BlockIf(x)
    If x < 0 Then
        BlockIf = "below"
    ElseIf x = 0 Then
        BlockIf = "zero"
    ElseIf x = 1 Then BlockIf = "one"
    Else
        BlockIf = "above"
    End If
End Function
Function Arms ' expect: String below zero one above
    Arms = BlockIf(-1) & " " & BlockIf(0) & " " & BlockIf(1) & " " & BlockIf(2)
End Function
Function LineIf ' expect: String yes
    If 1 < 2 Then LineIf = "yes" Else LineIf = "no"
End Function
Function LineIfElse ' expect: String no
    If 1 > 2 Then LineIfElse = "yes" Else LineIfElse = "no"
End Function
Function LineIfJoined ' expect: Integer 12
    Dim a, b
    If False Then a = 100 : b = 200
    If True Then a = 2 : b = 10
    LineIfJoined = a + b
End Function
Function LineIfNested ' expect: Integer 2
    If True Then If False Then LineIfNested = 1 Else LineIfNested = 2
End Function
Function LineIfEnds ' expect: Integer 1
    If True Then LineIfEnds = 1 End If
End Function
Function NullIsFalse ' expect: Integer 2
    If Null Then NullIsFalse = 1 Else NullIsFalse = 2
End Function
Function TextConditions ' expect: String ab
    If "True" Then TextConditions = "a"
    If "1" Then TextConditions = TextConditions & "b"
    If "false" Then TextConditions = TextConditions & "c"
End Function
Function TextIsNoCondition ' expect: error 13 Type mismatch at +1
    If "maybe" Then TextIsNoCondition = 1
End Function
Function ElseIfLine ' expect: error 11 Division by zero at +3
    If False Then
        ElseIfLine = 1
    ElseIf 1 / 0 Then
        ElseIfLine = 2
    End If
End Function

'---- Select Case
Function Pick(x)
    Select Case x
        Case 1
            Pick = "one"
        Case 2, 3
            Pick = "few"
        Case "a", "b" : Pick = "letter"
        Case Else
            Pick = "other"
    End Select
End Function
Function Picks ' expect: String one few few other
    Picks = Pick(1) & " " & Pick(2) & " " & Pick(3) & " " & Pick(4)
End Function
Function FirstWins ' expect: Integer 1
    Select Case True
        Case 2 > 1 : FirstWins = 1
        Case 3 > 1 : FirstWins = 2
    End Select
End Function
Function NothingFits ' expect: Empty
    Select Case 5

        Case 1
            NothingFits = 1
    End Select
End Function
Function SelectOnce ' expect: Integer 1
    Select Case Counted()
        Case 5, 6, 7
        Case 8
    End Select
    SelectOnce = counter
End Function
Dim counter
Function Counted()
    counter = counter + 1
    Counted = 0
End Function
Function NoCases ' expect: Integer 1
    NoCases = 1
    Select Case 1
    End Select
End Function
