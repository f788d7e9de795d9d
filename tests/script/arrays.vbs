' Arrays: fixed, growing, of several dimensions, in one another.
Dim fixedOne(3), growing()
Function Fixed ' expect: Integer 3
    fixedOne(3) = "x"
    Fixed = CInt(UBound(fixedOne))
End Function
Function FixedIsFixed ' expect: error 10 This array is fixed or temporarily locked at +1
    ReDim fixedOne(5)
End Function
Function NotYet ' expect: error 9 Subscript out of range at +1
    NotYet = UBound(growing)
End Function
Function NotYetRead ' expect: error 9 Subscript out of range at +1
    NotYetRead = growing(0)
End Function
Function Grows ' expect: String 1 5
    ReDim growing(1)
    growing(1) = 1
    ReDim Preserve growing(5)
    Grows = growing(1) & " " & UBound(growing)
End Function
Function Shrinks ' expect: String a 1
    Dim a
    a = Array("a", "b", "c")
    ReDim Preserve a(1)
    Shrinks = a(0) & " " & UBound(a)
End Function
Function ForgetsWithoutPreserve ' expect: Boolean True
    ReDim growing(1)
    growing(1) = 1
    ReDim growing(1)
    ForgetsWithoutPreserve = IsEmpty(growing(1))
End Function
Function LastDimensionGrows ' expect: Integer 7
    ReDim growing(1, 1)
    growing(1, 1) = 7
    ReDim Preserve growing(1, 4)
    LastDimensionGrows = growing(1, 1)
End Function
Function FirstDimensionDoesNot ' expect: error 9 Subscript out of range at +2
    ReDim growing(1, 1)
    ReDim Preserve growing(2, 1)
End Function
Function Bounds ' expect: String 0 2 4
    Dim a(2, 4)
    Bounds = LBound(a) & " " & UBound(a) & " " & UBound(a, 2)
End Function
Function ThirdDimension ' expect: error 9 Subscript out of range at +2
    Dim a(2, 4)
    ThirdDimension = UBound(a, 3)
End Function
Function Beyond ' expect: error 9 Subscript out of range at +2
    Dim a(2)
    a(3) = 1
End Function
Function Below ' expect: error 9 Subscript out of range at +2
    Dim a(2)
    Below = a(-1)
End Function
Function WrongDimensions ' expect: error 9 Subscript out of range at +2
    Dim a(2)
    WrongDimensions = a(1, 1)
End Function
Function IndexRounds ' expect: Integer 3
    Dim a(3)
    a(2) = 3
    IndexRounds = a("1.6")
End Function
Function IndexIsText ' expect: error 13 Type mismatch at +2
    Dim a(3)
    IndexIsText = a("x")
End Function
Function NoArray ' expect: error 13 Type mismatch at +3
    Dim a
    a = 5
    NoArray = a(0)
End Function
Function NoArrayWritten ' expect: error 13 Type mismatch at +2
    Dim a
    a(0) = 5
End Function
Function Copies ' expect: String 1 2
    Dim a, b
    a = Array(1)
    b = a
    b(0) = 2
    Copies = a(0) & " " & b(0)
End Function
Function InOneAnother ' expect: String 5 2
    Dim a, inner
    a = Array(1, Array(2, 3))
    inner = a(1)
    a(1)(0) = 5
    InOneAnother = a(1)(0) & " " & inner(0)
End Function
Function ErasedFixed ' expect: Boolean True
    fixedOne(1) = 5
    Erase fixedOne
    ErasedFixed = IsEmpty(fixedOne(1))
End Function
Function ErasedGrowing ' expect: error 9 Subscript out of range at +3
    ReDim growing(4)
    Erase growing
    growing(0) = 1
End Function
Function EraseWantsArray ' expect: error 13 Type mismatch at +2
    Dim a
    Erase a
End Function
Function NoElements ' expect: Integer -1
    ReDim growing(-1)
    NoElements = CInt(UBound(growing))
End Function
Function TooSmall ' expect: error 9 Subscript out of range at +1
    ReDim growing(-2)
End Function
Function ReDimTwo ' expect: String 1 2
    Dim a, b
    ReDim a(1), b(2)
    ReDimTwo = UBound(a) & " " & UBound(b)
End Function
Function ReDimDeclares ' expect: Long 4
    ReDim fresh(4)
    ReDimDeclares = UBound(fresh)
End Function
Function SizeFromVariable ' expect: Long 6
    Dim n
    n = 6
    ReDim list(n)
    SizeFromVariable = UBound(list)
End Function
Function EachSeesTheOld ' expect: String 123
    Dim a, item
    a = Array(1, 2, 3)
    For Each item In a
        a(2) = 9
        EachSeesTheOld = EachSeesTheOld & item
    Next
End Function
Function TooLarge ' expect: error 7 Out of memory at +1
    ReDim list(100000000)
End Function
Function FarTooLarge ' expect: error 7 Out of memory at +1
    ReDim list(2147483646, 2147483646, 2147483646)
End Function

'---- functions on arrays
Function Made ' expect: String 3 a
    Dim a
    a = Array(1, 2.5, "a", Null)
    Made = UBound(a) & " " & a(2)
End Function
Function MadeEmpty ' expect: Long -1
    MadeEmpty = UBound(Array())
End Function
Function Joined ' expect: String a, b, c
    Joined = Join(Array("a", "b", "c"), ", ")
End Function
Function JoinedByBlank ' expect: String 1 True 2.5
    JoinedByBlank = Join(Array(1, True, 2.5))
End Function
Function JoinNoArray ' expect: error 13 Type mismatch at +1
    JoinNoArray = Join("a")
End Function
Function SplitUp ' expect: String 3 a||c
    Dim a
    a = Split("a,,b,c", ",")
    SplitUp = UBound(a) & " " & a(0) & "|" & a(1) & "|" & a(3)
End Function
Function SplitByBlank ' expect: Long 2
    SplitByBlank = UBound(Split("one two three"))
End Function
Function SplitCounted ' expect: String b,c
    SplitCounted = Split("a,b,c", ",", 2)(1)
End Function
Function SplitNothing ' expect: Long -1
    SplitNothing = UBound(Split("", ","))
End Function
Function SplitByNothing ' expect: String a,b
    SplitByNothing = Split("a,b", "")(0)
End Function
Function SplitWithoutCase ' expect: String one|two|
    SplitWithoutCase = Join(Split("oneXtwox", "x", -1, vbTextCompare), "|")
End Function
Function Filtered ' expect: String apple,grape
    Filtered = Join(Filter(Array("apple", "plum", "grape"), "ap"), ",")
End Function
Function FilteredOut ' expect: String plum
    FilteredOut = Join(Filter(Array("apple", "plum", "grape"), "ap", False), ",")
End Function
Function FilteredWithoutCase ' expect: String APPLE
    FilteredWithoutCase = Join(Filter(Array("APPLE", "plum"), "ap", True, 1), ",")
End Function
Function FilteredToNothing ' expect: Long -1
    FilteredToNothing = UBound(Filter(Array("a"), "b"))
End Function
Function BoundOfNoArray ' expect: error 13 Type mismatch at +1
    BoundOfNoArray = UBound(5)
End Function
'---- An element passed by reference gets what holds its own array: a copy, so that nothing holds itself.
Sub PutRow(x, all)
    x = Array(all)
End Sub
Sub Put(x, all)
    x = all
End Sub
Function HoldsACopy ' expect: String 3 0 5
    Dim a(2), i
    a(1) = 5
    For i = 1 To 3
        PutRow a(0), a
    Next
    HoldsACopy = CStr(Depth(a)) & " " & CStr(Depth(a(1))) & " " & CStr(a(0)(0)(1))
End Function
Function Depth(ByVal x)
    Depth = 0
    If IsArray(x) Then If IsArray(x(0)) Then Depth = Depth(x(0)(0)) + 1
End Function
Function DoesNotPileUp ' expect: Boolean True
    Dim i
    For i = 1 To 75
        Own
    Next
    DoesNotPileUp = True
End Function
Sub Own()
    Dim a(59999), b(1)
    PutRow a(0), a
    b(0) = Array(a)
    Put b(0)(0), b
End Sub
