' Arithmetic: which kind a result has, and when integers widen.
Function AddIntegers ' expect: Integer 5
    AddIntegers = 2 + 3
End Function
Function AddWidens ' expect: Long 32768
    AddWidens = 32767 + 1
End Function
Function AddWidensToDouble ' expect: Double 2147483648
    AddWidensToDouble = 2147483647 + 1
End Function
Function SubtractWidens ' expect: Long -32769
    SubtractWidens = -32768 - 1
End Function
Function MultiplyWidens ' expect: Long 90000
    MultiplyWidens = 300 * 300
End Function
Function MultiplyWidensToDouble ' expect: Double 10000000000
    MultiplyWidensToDouble = 100000 * 100000
End Function
Function AddBytes ' expect: Integer 300
    AddBytes = CByte(200) + CByte(100)
End Function
Function SubtractBytes ' expect: Integer -1
    SubtractBytes = CByte(1) - CByte(2)
End Function
Function AddSmallBytes ' expect: Byte 3
    AddSmallBytes = CByte(1) + CByte(2)
End Function
Function AddBooleans ' expect: Integer -2
    AddBooleans = True + True
End Function
Function AddEmpty ' expect: Integer 7
    AddEmpty = Empty + 7
End Function
Function AddTwoEmpty ' expect: Integer 0
    AddTwoEmpty = Empty + Empty
End Function
Function AddTexts ' expect: String 12
    AddTexts = "1" + "2"
End Function
Function AddTextAndNumber ' expect: Double 3
    AddTextAndNumber = "1" + 2
End Function
Function AddEmptyText ' expect: String a
    AddEmptyText = Empty + "a"
End Function
Function AddNull ' expect: Null
    AddNull = 1 + Null
End Function
Function AddSingles ' expect: Single 0.3
    AddSingles = CSng(0.1) + CSng(0.2)
End Function
Function SingleAndLong ' expect: Double 70000.5
    SingleAndLong = CSng(0.5) + 70000
End Function
Function SingleAndInteger ' expect: Single 2.5
    SingleAndInteger = CSng(0.5) + 2
End Function
Function SingleWidens ' expect: String Double
    SingleWidens = TypeName(CSng(3E+38) + CSng(3E+38))
End Function
Function AddCurrency ' expect: Currency 3.75
    AddCurrency = CCur(1.25) + 2.5
End Function
Function MultiplyCurrency ' expect: Currency 3.75
    MultiplyCurrency = CCur(1.25) * 3
End Function
Function MultiplyCurrencyDouble ' expect: Double 3.125
    MultiplyCurrencyDouble = CCur(1.25) * 2.5
End Function
Function DivideIntegers ' expect: Double 2.5
    DivideIntegers = 5 / 2
End Function
Function DivideEven ' expect: Double 2
    DivideEven = 4 / 2
End Function
Function DivideSingles ' expect: Single 0.3333333
    DivideSingles = CSng(1) / 3
End Function
Function DivideByZero ' expect: error 11 Division by zero at +1
    DivideByZero = 1 / 0
End Function
Function ZeroByZero ' expect: error 6 Overflow at +1
    ZeroByZero = 0 / 0
End Function
Function WholeDivision ' expect: Integer 3
    WholeDivision = 7 \ 2
End Function
Function WholeDivisionRounds ' expect: Long 4
    WholeDivisionRounds = 7.5 \ 1.5
End Function
Function WholeDivisionNegative ' expect: Integer -3
    WholeDivisionNegative = -7 \ 2
End Function
Function WholeDivisionByZero ' expect: error 11 Division by zero at +1
    WholeDivisionByZero = 1 \ 0.4
End Function
Function WholeDivisionTooLarge ' expect: error 6 Overflow at +1
    WholeDivisionTooLarge = 3000000000 \ 2
End Function
Function Modulo ' expect: Integer 1
    Modulo = 7 Mod 3
End Function
Function ModuloNegative ' expect: Integer -1
    ModuloNegative = -7 Mod 3
End Function
Function ModuloRounds ' expect: Long 2
    ModuloRounds = 12 Mod 4.6
End Function
Function ModuloByZero ' expect: error 11 Division by zero at +1
    ModuloByZero = 1 Mod 0
End Function
Function Power ' expect: Double 8
    Power = 2 ^ 3
End Function
Function PowerFromTheLeft ' expect: Double 64
    PowerFromTheLeft = 2 ^ 3 ^ 2
End Function
Function SignBeforePower ' expect: Double 4
    SignBeforePower = -2 ^ 2
End Function
Function SignOfANameBeforePower ' expect: Double 6.25
    Dim x(1)
    x(1) = 2.5
    SignOfANameBeforePower = -x(1) ^ 2
End Function
Function SignOfInputBeforePower ' expect: Double 9
    InputValue = 3
    SignOfInputBeforePower = -InputValue ^ 2
End Function
Function SignsBeforePower ' expect: Double -8
    SignsBeforePower = - + - -2 ^ 3
End Function
Function MinusIsNoSign ' expect: Double -3
    MinusIsNoSign = 1 - 2 ^ 2
End Function
Function SignInBrackets ' expect: Double -4
    SignInBrackets = -(2 ^ 2)
End Function
Function PowerNegative ' expect: Double 0.5
    PowerNegative = 2 ^ -1
End Function
Function SignOnBothSides ' expect: Double 0.25
    SignOnBothSides = -2 ^ -2
End Function
Function SignInAChainOfPowers ' expect: Double 0.125
    SignInAChainOfPowers = 2 ^ -1 ^ 3
End Function
Function PowerOfNegative ' expect: error 5 Invalid procedure call or argument at +1
    PowerOfNegative = (-8) ^ (1 / 3)
End Function
Function PowerTooLarge ' expect: error 6 Overflow at +1
    PowerTooLarge = 10 ^ 309
End Function
Function Negate ' expect: Long 32768
    Dim x
    x = -32767 - 1
    Negate = -x
End Function
Function NegateText ' expect: Double -5
    Dim x
    x = "5"
    NegateText = -x
End Function
Function NegateBoolean ' expect: Integer 1
    NegateBoolean = -True
End Function
Function NegateNothing ' expect: error 91 Object variable not set at +1
    NegateNothing = -Nothing
End Function
Function NotANumber ' expect: error 13 Type mismatch at +1
    NotANumber = 1 + "one"
End Function
Function ArrayInArithmetic ' expect: error 13 Type mismatch at +1
    ArrayInArithmetic = Array(1) + 1
End Function
Function DoubleTooLarge ' expect: error 6 Overflow at +1
    DoubleTooLarge = 1E+308 * 10
End Function
Function Join1 ' expect: String 12
    Join1 = 1 & 2
End Function
Function JoinNull ' expect: String a
    JoinNull = Null & "a"
End Function
Function JoinNulls ' expect: Null
    JoinNulls = Null & Null
End Function
Function JoinBeforeCompare ' expect: Boolean True
    JoinBeforeCompare = "a" & "b" = "ab"
End Function
Function AddBeforeJoin ' expect: String 33
    AddBeforeJoin = 1 + 2 & 3
End Function

'---- precedence
Function UnaryBeforeTimes ' expect: Integer -6
    UnaryBeforeTimes = -2 * 3
End Function
Function PowerBeforeTimes ' expect: Double 18
    PowerBeforeTimes = 2 * -3 ^ 2
End Function
Function SignAfterTimes ' expect: Integer -24
    SignAfterTimes = 2 * -3 * 4
End Function
Function PowerBeforeNot ' expect: Long -5
    PowerBeforeNot = Not -2 ^ 2
End Function
Function SignOfNot ' expect: Integer 6
    SignOfNot = -Not 5
End Function
Function TimesBeforeWhole ' expect: Double 3
    TimesBeforeWhole = CDbl(20 \ 3 * 2)
End Function
Function WholeBeforeModulo ' expect: Integer 1
    WholeBeforeModulo = 7 Mod 7 \ 2
End Function
Function ModuloBeforePlus ' expect: Integer 3
    ModuloBeforePlus = 2 + 7 Mod 3
End Function
Function DivideFromTheLeft ' expect: Double 2
    DivideFromTheLeft = 16 / 4 / 2
End Function
Function MinusFromTheLeft ' expect: Integer 3
    MinusFromTheLeft = 10 - 5 - 2
End Function
Function CompareBeforeNot ' expect: Boolean False
    CompareBeforeNot = Not 1 = 1
End Function
Function NotBeforeAnd ' expect: Boolean False
    NotBeforeAnd = Not True And False
End Function
Function AndBeforeOr ' expect: Boolean True
    AndBeforeOr = True Or True And False
End Function
Function OrBeforeXor ' expect: Boolean False
    OrBeforeXor = True Xor True Or False
End Function
Function XorBeforeEqv ' expect: Boolean True
    XorBeforeEqv = False Eqv True Xor True
End Function
Function EqvBeforeImp ' expect: Boolean True
    EqvBeforeImp = False Imp True Eqv False
End Function
Function Parentheses ' expect: Integer 9
    Parentheses = (1 + 2) * 3
End Function

'---- logical operators
Function AndBits ' expect: Integer 8
    AndBits = 12 And 10
End Function
Function OrBits ' expect: Integer 14
    OrBits = 12 Or 10
End Function
Function XorBits ' expect: Integer 6
    XorBits = 12 Xor 10
End Function
Function EqvBits ' expect: Integer -7
    EqvBits = 12 Eqv 10
End Function
Function ImpBits ' expect: Integer -5
    ImpBits = 12 Imp 10
End Function
Function NotBits ' expect: Integer -13
    NotBits = Not 12
End Function
Function NotLong ' expect: Long -70001
    NotLong = Not 70000
End Function
Function NotDouble ' expect: Long -4
    NotDouble = Not 2.6
End Function
Function BooleansStay ' expect: Boolean True
    BooleansStay = True And 1 = 1
End Function
Function BooleanAndNumber ' expect: Integer 5
    BooleanAndNumber = True And 5
End Function
Function TextBits ' expect: Long 4
    TextBits = "12" And 6
End Function
Function TextTrue ' expect: Boolean True
    TextTrue = "True" And True
End Function
Function NotText ' expect: error 13 Type mismatch at +1
    NotText = Not "x"
End Function
Function BitsOverflow ' expect: error 6 Overflow at +1
    BitsOverflow = 3E9 And 1
End Function
Function FalseAndNull ' expect: Boolean False
    FalseAndNull = False And Null
End Function
Function TrueAndNull ' expect: Null
    TrueAndNull = True And Null
End Function
Function NullOrTrue ' expect: Boolean True
    NullOrTrue = Null Or True
End Function
Function NullOrFalse ' expect: Null
    NullOrFalse = Null Or False
End Function
Function NullXorTrue ' expect: Null
    NullXorTrue = Null Xor True
End Function
Function NullEqvTrue ' expect: Null
    NullEqvTrue = Null Eqv True
End Function
Function FalseImpNull ' expect: Boolean True
    FalseImpNull = False Imp Null
End Function
Function TrueImpNull ' expect: Null
    TrueImpNull = True Imp Null
End Function
Function NullImpTrue ' expect: Boolean True
    NullImpTrue = Null Imp True
End Function
Function NotNull ' expect: Null
    NotNull = Not Null
End Function
Dim calls
Function Touch()
    calls = calls + 1
    Touch = True
End Function
Function NoShortCircuit ' expect: Integer 2
    Dim ignored
    ignored = False And Touch()
    ignored = True Or Touch()
    NoShortCircuit = calls
End Function

'---- comparisons
Function NumberAndNumber ' expect: Boolean True
    NumberAndNumber = 1 = 1.0 And 1 < 2 And 2 > 1 And 1 <= 1 And 1 >= 1 And 1 <> 2
End Function
Function SignsTheOtherWayRound ' expect: Boolean True
    SignsTheOtherWayRound = 1 =< 1 And 2 => 1 And 1 >< 2
End Function
Function TextsByCharacter ' expect: Boolean True
    TextsByCharacter = "B" < "a" And "a" < "b" And "a" < "ab" And "10" < "9"
End Function
Function NumberIsLessThanText ' expect: Boolean True
    Dim n, t
    n = 10
    t = "9"
    NumberIsLessThanText = n < t And t > n And Not n = t
End Function
Function LiteralNumberTurnsText ' expect: Boolean True
    Dim t
    t = "10"
    LiteralNumberTurnsText = t = 10
End Function
Function LiteralNumberAndNoNumber ' expect: error 13 Type mismatch at +3
    Dim t
    t = "ten"
    LiteralNumberAndNoNumber = t = 10
End Function
Function LiteralTextTurnsNumber ' expect: Boolean True
    Dim n
    n = 10
    LiteralTextTurnsNumber = n = "10"
End Function
Function EmptyIsZeroAndNoText ' expect: Boolean True
    EmptyIsZeroAndNoText = Empty = 0 And Empty = "" And Empty = Empty And Empty < 1 And Empty < "a"
End Function
Function NullIsNothingKnown ' expect: Null
    NullIsNothingKnown = Null = Null
End Function
Function TrueIsMinusOne ' expect: Boolean True
    TrueIsMinusOne = True = -1 And False = 0 And True < False
End Function
Function Objects ' expect: Boolean True
    Objects = Math Is Math And Not Math Is Nothing And Nothing Is Nothing
End Function
Function IsWantsObjects ' expect: error 424 Object required at +1
    IsWantsObjects = 1 Is Nothing
End Function
Function ComparedInARow ' expect: Boolean True
    ComparedInARow = 3 > 2 > 1 = False
End Function
