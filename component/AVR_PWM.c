/*
 * AVR_PWM.c - the code file of the AVR PWM component.
 * Read two ways: the sections below as keys, and the marked blocks as C code.
 * Its lines end in CR LF.
 *
[Settings]
Description=AVR PWM
IsAnalogue=0
MultipleAllowed=0

[MacroNames]
Count=5
1=EnableChannel
2=DisableChannel
3=SetDuty
4=ChangePeriod
5=SetDutyHighLow

[MacroReturns]
1=void
2=void
3=void
4=void
5=void

[MacroParameters_EnableChannel]
Count=1
1=Channel

[MacroParameters_DisableChannel]
Count=1
1=Channel

[MacroParameters_SetDuty]
Count=2
1=Channel
2=Duty

[MacroParameters_ChangePeriod]
Count=2
1=Period
2=Prescaler

[MacroParameters_SetDutyHighLow]
Count=3
1=Channel
2=DutyHigh
3=DutyLow

[CCode]
 * The section above takes in any C line below that holds "=".
 */
/*DefinesCode_Start*/
/*DefinesCode_End*/
/*InitialisationCode_Start*/
/*InitialisationCode_End*/
/*InterruptCode_Start*/
/*InterruptCode_End*/
/*Macro_EnableChannel_Start*/
/*Macro_EnableChannel_End*/
/*Macro_DisableChannel_Start*/
/*Macro_DisableChannel_End*/
/*Macro_SetDuty_Start*/
/*Macro_SetDuty_End*/
/*Macro_ChangePeriod_Start*/
/*Macro_ChangePeriod_End*/
/*Macro_SetDutyHighLow_Start*/
/*Macro_SetDutyHighLow_End*/
