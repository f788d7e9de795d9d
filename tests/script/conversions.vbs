' Conversion and inspection.
Function Integers ' expect: String 2 2 4 -2 31
    Integers = CInt(1.5) & " " & CInt(2.5) & " " & CInt("3.6") & " " & CInt(-2.5) & " " & CInt("&H1F")
End Function
Function IntegerTooLarge ' expect: error 6 Overflow at +1
    IntegerTooLarge = CInt(32768)
End Function
Function IntegerOfText ' expect: error 13 Type mismatch at +1
    IntegerOfText = CInt("abc")
End Function
Function IntegerOfNull ' expect: error 94 Invalid use of Null at +1
    IntegerOfNull = CInt(Null)
End Function
Function IntegerOfEmpty ' expect: Integer 0
    IntegerOfEmpty = CInt(Empty)
End Function
Function Longs ' expect: Long 70000
    Longs = CLng("70000")
End Function
Function LongTooLarge ' expect: error 6 Overflow at +1
    LongTooLarge = CLng(2147483648)
End Function
Function Bytes ' expect: Byte 255
    Bytes = CByte(255.4)
End Function
Function ByteTooLarge ' expect: error 6 Overflow at +1
    ByteTooLarge = CByte(256)
End Function
Function Singles ' expect: Single 0.1
    Singles = CSng("0.1")
End Function
Function SingleTooLarge ' expect: error 6 Overflow at +1
    SingleTooLarge = CSng(1E39)
End Function
Function Doubles ' expect: Double 1E-05
    Doubles = CDbl("1e-5")
End Function
Function DoubleTooLarge ' expect: error 6 Overflow at +1
    DoubleTooLarge = CDbl("1e999")
End Function
Function Currencies ' expect: Currency 1.2346
    Currencies = CCur(1.23456)
End Function
Function Booleans ' expect: String True False True False
    Booleans = CBool(5) & " " & CBool(0) & " " & CBool("TRUE") & " " & CBool("0")
End Function
Function BooleanOfText ' expect: error 13 Type mismatch at +1
    BooleanOfText = CBool("yes")
End Function
Function Texts ' expect: String 1True
    Texts = CStr(1) & CStr(True) & CStr(Empty)
End Function
Function TextOfNull ' expect: error 94 Invalid use of Null at +1
    TextOfNull = CStr(Null)
End Function
Function Numeric ' expect: String True True False True False True False
    Numeric = IsNumeric("12.5") & " " & IsNumeric(Empty) & " " & IsNumeric("") & " " & IsNumeric("&HFF") & " " & _
        IsNumeric("12x") & " " & IsNumeric(True) & " " & IsNumeric(Null)
End Function
Function Inspected ' expect: String True False True True True False
    Dim nothingYet
    Inspected = IsEmpty(nothingYet) & " " & IsEmpty("") & " " & IsNull(Null) & " " & IsArray(Array()) & " " & _
        IsObject(Math) & " " & IsObject(1)
End Function
Function Names ' expect: String Empty Null Integer Long Double String Boolean Variant() Nothing ScriptFunctions
    Dim a(1), e
    Names = TypeName(e) & " " & TypeName(Null) & " " & TypeName(1) & " " & TypeName(70000) & " " & _
        TypeName(1.5) & " " & TypeName("") & " " & TypeName(True) & " " & TypeName(a) & " " & _
        TypeName(Nothing) & " " & TypeName(Math)
End Function
Function Kinds ' expect: String 0 1 2 3 4 5 6 8 11 17 8204
    Kinds = VarType(Empty) & " " & VarType(Null) & " " & VarType(1) & " " & VarType(70000) & " " & _
        VarType(CSng(1)) & " " & VarType(1.5) & " " & VarType(CCur(1)) & " " & VarType("") & " " & _
        VarType(True) & " " & VarType(CByte(1)) & " " & VarType(Array())
End Function

'---- the host's object
Function Sample ' expect: Long 0
    Sample = InputValue
End Function
Function WithPrefix ' expect: Single 2.5
    WithPrefix = Math.Script_Var(17)
End Function
Function WithoutPrefix ' expect: Single 2.5
    WithoutPrefix = script_VAR(0017)
End Function
Function FieldsWithoutPrefix ' expect: Single 10.5
    FieldsWithoutPrefix = Car10 + CdA
End Function
Function Widths ' expect: String Single Double Single Long
    Widths = TypeName(Script_sign(1)) & " " & TypeName(Script_asin(1)) & " " & TypeName(Mass) & " " & TypeName(InputValue)
End Function
Function NarrowArguments ' expect: Single 1.677722E+07
    NarrowArguments = Script_floor(16777217)
End Function
Function RoundedArguments ' expect: Single 2.5
    RoundedArguments = Script_Var("16.7")
End Function
Function WrongArgument ' expect: error 13 Type mismatch at +1
    WrongArgument = Script_Var("x")
End Function
Function WrongCount ' expect: error 450 Wrong number of arguments or invalid property assignment: 'Script_min' at +1
    WrongCount = Script_min(1)
End Function
Function TooLargeForIt ' expect: error 6 Overflow at +1
    TooLargeForIt = Script_sinh(1000)
End Function
Function NoSuchMember ' expect: error 438 Object doesn't support this property or method: 'Temp' at +1
    NoSuchMember = Math.Temp
End Function
Function FunctionIsNotWritten ' expect: error 438 Object doesn't support this property or method at +1
    Math.Script_Car = 3
End Function
Function FieldIsWritten ' expect: Single 55.5
    Car3 = 55.5
    Math.Car3 = Car3 + 0
    FieldIsWritten = Script_Car(3)
End Function
Function OwnNamesFirst ' expect: String mine
    Dim Mass
    Mass = "mine"
    OwnNamesFirst = Mass
End Function
'---- Hexadecimal texts.
Function Wide ' expect: Long 65535
    Wide = CLng("&HFFFF&")
End Function
Function Narrow ' expect: Long -1
    Narrow = CLng("&HFFFF")
End Function
Function DigitD ' expect: Long 29
    DigitD = CLng("&H1D")
End Function
Function ExponentD ' expect: Double 1000
    ExponentD = CDbl("1D3")
End Function
Function NullTimes ' expect: Null
    NullTimes = String(Null, "x")
End Function
Function Modal ' expect: Long 4864
    Modal = CLng(vbSystemModal + vbDefaultButton4 + vbApplicationModal)
End Function
