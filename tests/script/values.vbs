' Literals and how values read.
Function SmallInteger ' expect: Integer 32767
    SmallInteger = 32767
End Function
Function LongLiteral ' expect: Long 32768
    LongLiteral = 32768
End Function
Function DoubleLiteral ' expect: Double 2147483648
    DoubleLiteral = 2147483648
End Function
Function LeadingZeros ' expect: Integer 17
    LeadingZeros = 0017
End Function
Function Point ' expect: Double 0.5
    Point = .5
End Function
Function PointBehind ' expect: Double 5
    PointBehind = 5.
End Function
Function Exponent ' expect: Double 1500
    Exponent = 1.5e3
End Function
Function ExponentSigned ' expect: Double 0.0025
    ExponentSigned = 2.5E-3
End Function
Function Hexadecimal ' expect: Integer 255
    Hexadecimal = &HFF
End Function
Function HexadecimalNegative ' expect: Integer -1
    HexadecimalNegative = &HFFFF
End Function
Function HexadecimalLong ' expect: Long 65535
    HexadecimalLong = &HFFFF&
End Function
Function HexadecimalWide ' expect: Long -1
    HexadecimalWide = &hffffffff
End Function
Function OctalLiteral ' expect: Integer 15
    OctalLiteral = &O17
End Function
Function Quotes ' expect: String say "hi"
    Quotes = "say ""hi"""
End Function
Function NothingAssigned ' expect: Empty
End Function
Function NullLiteral ' expect: Null
    NullLiteral = Null
End Function
Function TrueReads ' expect: String TrueFalse
    TrueReads = True & False
End Function
Function FifteenDigits ' expect: String 0.333333333333333
    FifteenDigits = CStr(1 / 3)
End Function
Function LargeNumber ' expect: String 1E+15
    LargeNumber = CStr(1000000000000000)
End Function
Function NearlyLarge ' expect: String 999999999999999
    NearlyLarge = CStr(999999999999999)
End Function
Function SmallNumber ' expect: String 0.0001
    SmallNumber = CStr(0.0001)
End Function
Function VerySmallNumber ' expect: String 1.5E-05
    VerySmallNumber = CStr(0.000015)
End Function
Function MinusZero ' expect: String 0
    MinusZero = CStr(-0.0)
End Function
Function SingleDigits ' expect: String 3.141593
    SingleDigits = CStr(CSng(3.14159265358979))
End Function
Function CurrencyDigits ' expect: String -1.2346
    CurrencyDigits = CStr(CCur(-1.23456))
End Function
Function NumbersInTexts ' expect: Double 1234.5
    NumbersInTexts = CDbl(" 1,234.5 ")
End Function
Function HexadecimalInText ' expect: Integer 31
    HexadecimalInText = CInt("&H1F")
End Function
Function NamesWithoutCase ' expect: Integer 3
    Dim Speed
    SPEED = 1
    speed = speed + 2
    NAMESWITHOUTCASE = sPeEd
End Function
Function BracketedName ' expect: Integer 4
    Dim [lap time]
    [lap time] = 4
    BracketedName = [lap time]
End Function
Function Constants ' expect: String String 2 8 13 10 True -2147221504 16711680
    Constants = TypeName(vbNullString) & " " & vbInteger & " " & vbString & " " & Asc(vbCr) & " " & _
        Asc(vbLf) & " " & (vbCrLf = vbNewLine And vbTrue = True) & " " & vbObjectError & " " & vbBlue
End Function
Function MoreConstants ' expect: String 9 0 11 12 0 1 -2 8192
    MoreConstants = Asc(vbTab) & " " & AscW(vbNullChar) & " " & Asc(vbVerticalTab) & " " & Asc(vbFormFeed) & _
        " " & vbBinaryCompare & " " & vbTextCompare & " " & vbUseDefault & " " & vbArray
End Function
