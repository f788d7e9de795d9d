' Functions and Subs, references and values, recursion.
Function Twice(x)
    Twice = 2 * x
End Function
Sub Grow(x)
    x = x + 1
End Sub
Sub GrowByRef(ByRef x)
    x = x + 1
End Sub
Sub GrowByVal(ByVal x)
    x = x + 1
End Sub
Sub GrowBoth(a, b)
    a = a + 1
    b = b + 10
End Sub
Function Called ' expect: Integer 10
    Called = Twice(5)
End Function
Function ByReference ' expect: Integer 2
    Dim a
    a = 1
    Grow a
    ByReference = a
End Function
Function ByReferenceSaid ' expect: Integer 3
    Dim a
    a = 1
    Call GrowByRef(a)
    GrowByRef a
    ByReferenceSaid = a
End Function
Function ByValueSaid ' expect: Integer 1
    Dim a
    a = 1
    GrowByVal a
    ByValueSaid = a
End Function
Function ByValueInParentheses ' expect: Integer 1
    Dim a
    a = 1
    Grow(a)
    Grow (a)
    ByValueInParentheses = a
End Function
Function FirstInParentheses ' expect: String 1 11
    Dim a, b
    a = 1 : b = 1
    GrowBoth (a), b
    FirstInParentheses = a & " " & b
End Function
Function ExpressionInParentheses ' expect: Integer 6
    Dim b
    b = 1
    GrowBoth (1) + 2, b
    ExpressionInParentheses = b - 5
End Function
Function SameTwice ' expect: Integer 12
    Dim a
    a = 1
    GrowBoth a, a
    SameTwice = a
End Function
Function ElementByReference ' expect: String 2 10
    Dim a(1)
    a(0) = 1
    GrowBoth a(0), a(1)
    ElementByReference = a(0) & " " & a(1)
End Function
Sub Deeper(x, depth)
    If depth = 0 Then
        x = x + 5
    Else
        Deeper x, depth - 1
    End If
End Sub
Function ReferenceOfReference ' expect: Integer 6
    Dim a
    a = 1
    Deeper a, 4
    ReferenceOfReference = a
End Function
Function LiteralByReference ' expect: Integer 1
    Grow 1
    LiteralByReference = 1
End Function
Function Factorial(n)
    If n <= 1 Then Factorial = 1 Else Factorial = n * Factorial(n - 1)
End Function
Function Recursion ' expect: Long 3628800
    Recursion = Factorial(10)
End Function
Function RecursionWidens ' expect: Double 2.43290200817664E+18
    RecursionWidens = Factorial(20)
End Function
Function Depth(n)
    If n = 0 Then
        Depth = 0
    Else
        Depth = 1 + Depth(n - 1)
    End If
End Function
Function DeepEnough ' expect: Integer 400
    DeepEnough = Depth(400)
End Function
Function TooDeep ' expect: error 28 Out of stack space at +4
    TooDeep = Forever(0)
End Function
Function Forever(n)
    Forever = Forever(n + 1)
End Function
Function NoResult ' expect: Empty
    NoResult = Grow2(1)
End Function
Sub Grow2(x)
End Sub
Function LeftEarly ' expect: Integer 1
    LeftEarly = 1
    Leave
    Exit Function
    LeftEarly = 2
End Function
Sub Leave
    Exit Sub
    LeaveNever = 1 / 0
End Sub
Private Function Hidden()
    Hidden = 8
End Function
Public Function NotHidden ' this one has no expectation
    NotHidden = Hidden
End Function
Function CalledWithout ' expect: Integer 8
    CalledWithout = NotHidden + 0
End Function
Function TooFew ' expect: error 450 Wrong number of arguments or invalid property assignment: 'Twice' at +1
    TooFew = Twice()
End Function
Function TooMany ' expect: error 450 Wrong number of arguments or invalid property assignment: 'Twice' at +1
    TooMany = Twice(1, 2)
End Function
Function NoSuchFunction ' expect: error 13 Type mismatch: 'Thrice' at +1
    NoSuchFunction = Thrice(1)
End Function
Function NoSuchSub ' expect: error 13 Type mismatch: 'Shrink' at +1
    Shrink 1
End Function
Function WrittenFunction ' expect: error 501 Illegal assignment: 'Twice' at +1
    Twice = 3
End Function
Function LineAfterCall ' expect: error 11 Division by zero at +1
    LineAfterCall = Twice(1) + 1 / 0
End Function
Function LineInCallee ' expect: error 11 Division by zero at +4
    LineInCallee = Broken()
End Function
Function Broken()
    Broken = 1 / 0
End Function
Function ArrayByReference ' expect: Integer 9
    Dim a(2)
    Fill a
    ArrayByReference = a(2)
End Function
Sub Fill(list)
    list(2) = 9
End Sub
Function ArrayByValue ' expect: Empty
    Dim a(2)
    FillCopy a
    ArrayByValue = a(2)
End Function
Sub FillCopy(ByVal list)
    list(2) = 9
End Sub
Function LockedArray ' expect: error 10 This array is fixed or temporarily locked at +6
    Dim a
    ReDim a(3)
    Cut a(1), a
End Function
Sub Cut(element, whole)
    ReDim whole(1)
End Sub
Function OneLine(x) OneLine = x + 1 End Function
Function OnOneLine ' expect: Integer 3
    OnOneLine = OneLine(2)
End Function
Function ReturnsArray()
    ReturnsArray = Array(4, 5, 6)
End Function
Function IndexedResult ' expect: Integer 5
    IndexedResult = ReturnsArray()(1)
End Function
