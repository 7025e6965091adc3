' The public interface from VBScript, late-bound: the calls of
' tests/scripts/public_interface.zsc in its order, one line each: "ok",
' "ok TYPE VALUE" or "error NUMBER DESCRIPTION", as the script's answers read.
Option Explicit
Dim o, r, a, b, c, d, e, f, g, h, i

Sub Answer(value)
  If Err.Number <> 0 Then
    WScript.Echo "error " & Err.Number & " " & Err.Description
  ElseIf IsEmpty(value) Then
    WScript.Echo "ok"
  ElseIf VarType(value) = vbBoolean Then
    WScript.Echo "ok Boolean " & CInt(value)
  Else
    WScript.Echo "ok " & TypeName(value) & " " & value
  End If
  Err.Clear
End Sub

On Error Resume Next
Set o = CreateObject("Zelvor_AVR_PWM.PWM")
r = Empty : r = o.Pr2 : Answer r
o.Pr2 = 300 : Answer Empty
r = Empty : r = o.Pr2 : Answer r
o.Pr2 = "128" : Answer Empty
r = Empty : r = o.Pr2 : Answer r
o.Pr2 = 99.5 : Answer Empty
r = Empty : r = o.Pr2 : Answer r
o.Pr2 = 40000 : Answer Empty
o.Pr2 = "abc" : Answer Empty
r = Empty : r = o.Pr2 : Answer r
o.iVersionMinor = 40000 : Answer Empty
r = Empty : r = o.iVersionMinor : Answer r
o.ClockSpeed = 16000000 : Answer Empty
r = Empty : r = o.ClockSpeed : Answer r
o.UseAltPin = True : Answer Empty
r = Empty : r = o.UseAltPin : Answer r
o.Label2 = 12 : Answer Empty
r = Empty : r = o.Label2 : Answer r
r = Empty : r = o.ShowSim : Answer r
a = "Settings" : b = "Description" : c = "x"
r = Empty : r = o.GetIniKeyValue(a, b, c) : Answer r
a = "MacroNames" : b = " 3" : c = ""
r = Empty : r = o.GetIniKeyValue(a, b, c) : Answer r
a = "Settings" : b = "NoSuchKey" : c = "fallback"
r = Empty : r = o.GetIniKeyValue(a, b, c) : Answer r
a = "a" : b = "b"
r = Empty : r = o.GetIniKeyValue(a, b) : Answer r
a = "NoSuchBlock"
r = Empty : r = o.GetCodeFromFile(a) : Answer r
o.Calc_Period_Freq : Answer Empty
a = 4 : b = "Pin B3" : c = 1 : d = True : e = -1 : f = 3 : g = False : h = 1 : i = False
o.setupAPin a, b, c, d, e, f, g, h, i : Answer Empty
a = 0
o.setupAPin a : Answer Empty
o.NoSuchMember : Answer Empty
r = Empty : r = o.NoSuchProperty : Answer r
r = Empty : r = o.IZelvorComponentV4_VNodeCount : Answer r
r = Empty : r = o.iVersionMajor : Answer r
o.iVersionMajor = 4 : Answer Empty
r = Empty : r = o.iVersionMajor : Answer r
o.Prescaler = 64 : Answer Empty
r = Empty : r = o.Prescaler : Answer r
o.PWM_No = 5 : Answer Empty
r = Empty : r = o.PWM_No : Answer r
o.MaxPwm = 7 : Answer Empty
r = Empty : r = o.MaxPwm : Answer r
o.HasAltPin = 1 : Answer Empty
r = Empty : r = o.HasAltPin : Answer r
o.ShowSim = True : Answer Empty
r = Empty : r = o.ShowSim : Answer r
o.Label1 = "Motor" : Answer Empty
r = Empty : r = o.Label1 : Answer r
r = Empty : r = o.GetIniKeyValue("settings", "DESCRIPTION", "") : Answer r
r = Empty : r = o.IZelvorComponentV4_VNodeProtocol(7) : Answer r
r = Empty : r = o.IZelvorComponentV4_VNodeName(1) : Answer r
