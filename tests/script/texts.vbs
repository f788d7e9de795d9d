' Functions on texts.
Function Lengths ' expect: String 0 3 4
    Lengths = Len("") & " " & Len("abc") & " " & Len(12.5)
End Function
Function LengthOfNull ' expect: Null
    LengthOfNull = Len(Null)
End Function
Function Lefts ' expect: String ab|abc||
    Lefts = Left("abc", 2) & "|" & Left("abc", 9) & "|" & Left("abc", 0) & "|"
End Function
Function LeftNegative ' expect: error 5 Invalid procedure call or argument at +1
    LeftNegative = Left("abc", -1)
End Function
Function Rights ' expect: String bc|abc|
    Rights = Right("abc", 2) & "|" & Right("abc", 9) & "|" & Right("abc", 0)
End Function
Function Mids ' expect: String bc|b||
    Mids = Mid("abc", 2) & "|" & Mid("abc", 2, 1) & "|" & Mid("abc", 9) & "|"
End Function
Function MidFromZero ' expect: error 5 Invalid procedure call or argument at +1
    MidFromZero = Mid("abc", 0)
End Function
Function MidOfNumber ' expect: String 23
    MidOfNumber = Mid(12345, 2, 2)
End Function
Function Cases ' expect: String abc ABC
    Cases = LCase("aBc") & " " & UCase("aBc")
End Function
Function CasesBeyondAscii ' expect: String ÄÖÉ äöé ÿŸ
    CasesBeyondAscii = UCase("äöé") & " " & LCase("ÄÖÉ") & " " & "ÿŸ"
End Function
Function Trims ' expect: String [a b][a b  ][  a b]
    Trims = "[" & Trim("  a b  ") & "][" & LTrim("  a b  ") & "][" & RTrim("  a b  ") & "]"
End Function
Function TrimBlanksOnly ' expect: Long 0
    TrimBlanksOnly = Len(Trim("    "))
End Function
Function Found ' expect: String 2 4 0 1
    Found = InStr("abcb", "b") & " " & InStr(3, "abcb", "b") & " " & InStr("abc", "B") & " " & InStr("abc", "")
End Function
Function FoundWithoutCase ' expect: Long 2
    FoundWithoutCase = InStr(1, "abc", "B", vbTextCompare)
End Function
Function FoundBehindTheEnd ' expect: Long 0
    FoundBehindTheEnd = InStr(9, "abc", "b")
End Function
Function FoundFromZero ' expect: error 5 Invalid procedure call or argument at +1
    FoundFromZero = InStr(0, "abc", "b")
End Function
Function FoundInNull ' expect: Null
    FoundInNull = InStr(Null, "b")
End Function
Function FoundLast ' expect: String 4 2 0 4
    FoundLast = InStrRev("abcb", "b") & " " & InStrRev("abcb", "b", 3) & " " & InStrRev("abc", "x") & _
        " " & InStrRev("abcb", "")
End Function
Function Replaced ' expect: String a--b--c
    Replaced = Replace("a,b,c", ",", "--")
End Function
Function ReplacedFrom ' expect: String b-c
    ReplacedFrom = Replace("a,b,c", ",", "-", 3)
End Function
Function ReplacedOnce ' expect: String a-b,c
    ReplacedOnce = Replace("a,b,c", ",", "-", 1, 1)
End Function
Function ReplacedWithoutCase ' expect: String -b-
    ReplacedWithoutCase = Replace("aBa", "A", "-", 1, -1, 1)
    ReplacedWithoutCase = LCase(ReplacedWithoutCase)
End Function
Function ReplacedNothing ' expect: String abc
    ReplacedNothing = Replace("abc", "", "x")
End Function
Function ReplaceNull ' expect: error 94 Invalid use of Null at +1
    ReplaceNull = Replace(Null, "a", "b")
End Function
Function Compared ' expect: String -1 0 1 0
    Compared = StrComp("A", "a") & " " & StrComp("a", "a") & " " & StrComp("b", "a") & " " & StrComp("A", "a", 1)
End Function
Function BadComparison ' expect: error 5 Invalid procedure call or argument at +1
    BadComparison = StrComp("a", "b", 7)
End Function
Function Reversed ' expect: String cba
    Reversed = StrReverse("abc")
End Function
Function Spaces ' expect: String [   ]
    Spaces = "[" & Space(3) & "]"
End Function
Function Strings ' expect: String xxx***
    Strings = String(3, "xyz") & String(3, 42)
End Function
Function StringNegative ' expect: error 5 Invalid procedure call or argument at +1
    StringNegative = String(-1, "x")
End Function
Function Characters ' expect: String A 65 € 128 8364
    Characters = Chr(65) & " " & Asc("A") & " " & Chr(128) & " " & Asc("€") & " " & AscW("€")
End Function
Function CharacterWide ' expect: String Ω
    CharacterWide = ChrW(937)
End Function
Function CharacterBeyond ' expect: error 5 Invalid procedure call or argument at +1
    CharacterBeyond = Chr(256)
End Function
Function CodeOfNothing ' expect: error 5 Invalid procedure call or argument at +1
    CodeOfNothing = Asc("")
End Function
Function TextOfArray ' expect: error 13 Type mismatch at +1
    TextOfArray = Len(Array(1))
End Function
