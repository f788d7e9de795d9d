' Functions on numbers.
Function Absolute ' expect: Integer 5
    Absolute = Abs(-5)
End Function
Function AbsoluteWidens ' expect: Long 32768
    AbsoluteWidens = Abs(-32767 - 1)
End Function
Function AbsoluteText ' expect: Double 2.5
    AbsoluteText = Abs("-2.5")
End Function
Function AbsoluteNull ' expect: Null
    AbsoluteNull = Abs(Null)
End Function
Function Signs ' expect: String -1 0 1
    Signs = Sgn(-2.5) & " " & Sgn(0) & " " & Sgn("7")
End Function
Function IntDown ' expect: Double -9
    IntDown = Int(-8.4)
End Function
Function FixTowardsZero ' expect: Double -8
    FixTowardsZero = Fix(-8.4)
End Function
Function IntOfInteger ' expect: Integer 3
    IntOfInteger = Int(3)
End Function
Function IntOfSingle ' expect: Single 2
    IntOfSingle = Int(CSng(2.7))
End Function
Function RoundHalfToEven ' expect: String 2 2 4 -2
    RoundHalfToEven = Round(1.5) & " " & Round(2.5) & " " & Round(3.5) & " " & Round(-2.5)
End Function
Function RoundPlaces ' expect: Double 2.35
    RoundPlaces = Round(2.345678, 2)
End Function
Function RoundQuarter ' expect: Double 0.12
    RoundQuarter = Round(0.125, 2)
End Function
Function RoundNegative ' expect: error 5 Invalid procedure call or argument at +1
    RoundNegative = Round(15, -1)
End Function
Function Root ' expect: Double 3
    Root = Sqr(9)
End Function
Function RootOfNegative ' expect: error 5 Invalid procedure call or argument at +1
    RootOfNegative = Sqr(-1)
End Function
Function LogOne ' expect: Double 0
    LogOne = Log(1)
End Function
Function LogOfZero ' expect: error 5 Invalid procedure call or argument at +1
    LogOfZero = Log(0)
End Function
Function ExpOne ' expect: Double 2.71828182845905
    ExpOne = Exp(1)
End Function
Function ExpTooLarge ' expect: error 6 Overflow at +1
    ExpTooLarge = Exp(710)
End Function
Function Circle ' expect: String 1 0 1
    Circle = Cos(0) & " " & Sin(0) & " " & Round(Tan(Atn(1)), 10)
End Function
Function Pi ' expect: Double 3.14159265358979
    Pi = 4 * Atn(1)
End Function
Function SineOfNull ' expect: error 94 Invalid use of Null at +1
    SineOfNull = Sin(Null)
End Function
Function Hexadecimal ' expect: String FF FFFF FFFF0000 10
    Hexadecimal = Hex(255) & " " & Hex(-1) & " " & Hex(-65536) & " " & Hex(15.6)
End Function
Function Octal ' expect: String 17 177777
    Octal = Oct(15) & " " & Oct(-1)
End Function
Function FirstRandom ' expect: Single 0.7055475
    FirstRandom = Rnd
End Function
Function RandomRepeats ' expect: Boolean True
    Dim a, b
    a = Rnd(-3) & Rnd & Rnd
    b = Rnd(-3) & Rnd & Rnd
    RandomRepeats = a = b And Rnd(0) = Rnd(0)
End Function
Function RandomInRange ' expect: Boolean True
    Dim i, x
    RandomInRange = True
    Randomize
    For i = 1 To 1000
        x = Rnd
        If x < 0 Or x >= 1 Then RandomInRange = False
    Next
End Function
Function RandomizedTheSame ' expect: Boolean True
    Dim a
    Rnd -1
    Randomize 5
    a = Rnd
    Rnd -1
    Randomize 5
    RandomizedTheSame = a = Rnd
End Function
Function TimeOfDay ' expect: Boolean True
    TimeOfDay = Timer >= 0 And Timer <= 86400 And TypeName(Timer) = "Single"
End Function
Function Colour ' expect: Long 16744703
    Colour = RGB(255, 128, 300)
End Function
Function NoArguments ' expect: error 450 Wrong number of arguments or invalid property assignment: 'Sqr' at +1
    NoArguments = Sqr()
End Function
Function BuiltInIsNotWritten ' expect: error 501 Illegal assignment: 'Sqr' at +1
    Sqr = 5
End Function

'---- a script's own function stands before a built-in one
Function Sqr(x)
    Sqr = "mine"
End Function
Function Hidden ' expect: String mine
    Hidden = Sqr(4)
End Function

'---- formatting
Function Plain ' expect: String 1,234,567.89
    Plain = FormatNumber(1234567.891)
End Function
Function HalfUp ' expect: String 0.13 3 -3
    HalfUp = FormatNumber(0.125) & " " & FormatNumber(2.5, 0) & " " & FormatNumber(-2.5, 0)
End Function
Function Carry ' expect: String 1,000.00
    Carry = FormatNumber(999.999)
End Function
Function NoGroups ' expect: String 1234.5
    NoGroups = FormatNumber(1234.5, 1, , , False)
End Function
Function NoLeadingZero ' expect: String .50
    NoLeadingZero = FormatNumber(0.5, 2, 0)
End Function
Function InParentheses ' expect: String (1.50)
    InParentheses = FormatNumber(-1.5, 2, True, True)
End Function
Function NotMinusZero ' expect: String 0.00
    NotMinusZero = FormatNumber(-0.001)
End Function
Function Large ' expect: String 100,000,000,000,000,000,000
    Large = FormatNumber(1E20, 0)
End Function
Function Small ' expect: String 0.0000012
    Small = FormatNumber(0.0000012, 7)
End Function
Function Percent ' expect: String 12.50%
    Percent = FormatPercent(0.125)
End Function
Function Money ' expect: String ($1,234.50)
    Money = FormatCurrency(-1234.5)
End Function
