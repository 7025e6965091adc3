' Every member of _PWM, late-bound from VBScript: in/out arguments from
' variables, failures from Err.Number. Wine's cscript shows no script errors,
' so every check prints its verdict and the last line counts the failures.
Option Explicit
Dim failures, o
failures = 0

' A value check also fails on an error that evaluating it raised.
Sub Check(what, got, want)
  If Err.Number <> 0 Then
    WScript.Echo "FAIL " & what & ": error " & Err.Number & " " & Err.Description
    failures = failures + 1
    Err.Clear
  ElseIf TypeName(got) = TypeName(want) And got = want Then
    WScript.Echo "ok   " & what
  Else
    WScript.Echo "FAIL " & what & ": got " & TypeName(got) & " [" & got & "], want " & TypeName(want) & " [" & want & "]"
    failures = failures + 1
  End If
End Sub

' The error of the statement before, then cleared.
Sub CheckErr(what, want)
  Dim number
  number = Err.Number
  Err.Clear
  Check what & " (Err.Number)", number, CLng(want)
End Sub

On Error Resume Next
Set o = CreateObject("Zelvor_AVR_PWM.PWM")
CheckErr "CreateObject", 0

' The host's version fields: plain 16-bit members.
Check "iVersionMajor", o.iVersionMajor, 0
o.iVersionMajor = 4
Check "iVersionMajor written", o.iVersionMajor, 4
o.iVersionMinor = 40000
CheckErr "iVersionMinor overflow", 6
Check "iVersionMinor unchanged", o.iVersionMinor, 0

' The code file beside the library; the three in/out texts stay as they came.
Dim sec, key, def
sec = "Settings" : key = "Description" : def = "x"
Check "GetIniKeyValue", o.GetIniKeyValue(sec, key, def), "AVR PWM"
Check "GetIniKeyValue section", sec, "Settings"
Check "GetIniKeyValue default", def, "x"
sec = "MacroNames" : key = " 3" : def = ""
Check "GetIniKeyValue numbered key", o.GetIniKeyValue(sec, key, def), "SetDuty"
sec = "Settings" : key = "NoSuchKey" : def = "fallback"
Check "GetIniKeyValue missing key", o.GetIniKeyValue(sec, key, def), "fallback"
Check "GetIniKeyValue literals", o.GetIniKeyValue("settings", "DESCRIPTION", ""), "AVR PWM"
Dim block
block = "NoSuchBlock"
Check "GetCodeFromFile missing", o.GetCodeFromFile(block), "//Error Reading Code For AVR PWM::NoSuchBlock" & vbCrLf
Check "GetCodeFromFile name", block, "NoSuchBlock"
block = "DefinesCode"
Check "GetCodeFromFile block", Left(o.GetCodeFromFile(block), 25), "/* PWM on Timer/Counter1 "
Check "GetCodeFromFile LF ends", InStr(o.GetCodeFromFile(block), vbCr), CLng(0)
o.GetIniKeyValue "a", "b"
CheckErr "GetIniKeyValue two arguments", 450

o.Calc_Period_Freq
CheckErr "Calc_Period_Freq", 0

' The virtual-node members answer fixed values.
Check "VNodeCount", o.IZelvorComponentV4_VNodeCount, CLng(0)
Check "VNodeProtocol", o.IZelvorComponentV4_VNodeProtocol(7), CLng(0)
Check "VNodeName", o.IZelvorComponentV4_VNodeName(1), ""
Dim size, msg
size = 5
msg = o.IZelvorComponentV4_VNodeMsgRead(1, size)
Check "VNodeMsgRead size", size, CLng(0)
' Wine's VBScript reads neither the bounds nor the elements of a Byte array:
' the C++ client checks those.
Check "VNodeMsgRead type", VarType(msg), vbArray + vbByte
msg = "keep"
o.IZelvorComponentV4_VNodeMsgWrite(1, 2) = msg
CheckErr "VNodeMsgWrite", 0
Check "VNodeMsgWrite msg", msg, "keep"

' The saved properties (no container here: the start-up's values).
Check "Pr2", o.Pr2, 255
o.Pr2 = 300
Check "Pr2 written", o.Pr2, 300
o.Pr2 = "128"
Check "Pr2 from text", o.Pr2, 128
o.Pr2 = 99.5
Check "Pr2 rounds half to even", o.Pr2, 100
o.Pr2 = 40000
CheckErr "Pr2 overflow", 6
o.Pr2 = "abc"
CheckErr "Pr2 type mismatch", 13
Check "Pr2 after failures", o.Pr2, 100
Check "Prescaler", o.Prescaler, 1
o.Prescaler = 64
Check "Prescaler written", o.Prescaler, 64
Check "PWM_No", o.PWM_No, -1
o.PWM_No = 5
Check "PWM_No ignores writes", o.PWM_No, -1
Check "ClockSpeed", o.ClockSpeed, CLng(0)
o.ClockSpeed = 16000000
Check "ClockSpeed ignores writes", o.ClockSpeed, CLng(0)
Check "MaxPwm", o.MaxPwm, CLng(0)
o.MaxPwm = 7
Check "MaxPwm ignores writes", o.MaxPwm, CLng(0)
Check "UseAltPin", o.UseAltPin, False
o.UseAltPin = True
Check "UseAltPin written", o.UseAltPin, True
o.UseAltPin = 0
Check "UseAltPin from a number", o.UseAltPin, False
Check "HasAltPin", o.HasAltPin, 0
o.HasAltPin = 1
Check "HasAltPin ignores writes", o.HasAltPin, 0
Check "Label1", o.Label1, ""
o.Label1 = "Motor " & Chr(233) & Chr(128)
Check "Label1 in Windows-1252", o.Label1, "Motor " & Chr(233) & Chr(128)
o.Label2 = 12
Check "Label2 from a number", o.Label2, "12"
Check "ShowSim", o.ShowSim, False
o.ShowSim = True
Check "ShowSim written", o.ShowSim, True

' setupAPin fills a slot; its by-reference arguments stay as they came.
Dim slot, pinName, port, portFixed, samePort, bit, bitFixed, direction, value
slot = 0 : pinName = "Pin B3" : port = 1 : portFixed = True : samePort = -1
bit = 3 : bitFixed = False : direction = 1 : value = False
o.setupAPin slot, pinName, port, portFixed, samePort, bit, bitFixed, direction, value
CheckErr "setupAPin", 0
Check "setupAPin arguments unchanged", slot & pinName & port & portFixed & bit, "0Pin B31True3"
slot = 4
o.setupAPin slot, pinName, port, portFixed, samePort, bit, bitFixed, direction, value
CheckErr "setupAPin outside the table", 9
o.setupAPin slot
CheckErr "setupAPin one argument", 450

o.NoSuchMember
CheckErr "unknown member", 438

Set o = Nothing
WScript.Echo "failures: " & failures
WScript.Quit failures
