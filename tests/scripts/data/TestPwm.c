[Settings]
Description=Test PWM

[MacroNames]
Count=5
1=EnableChannel
2=DisableChannel
3=SetDuty
4=ChangePeriod
5=SetDutyHighLow

[MacroReturns]
3=char

[MacroIsPrivate]
5=1

[MacroParameters_EnableChannel]
Count=1
1=Channel
[MacroParamTypes_EnableChannel]
1=unsigned char

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
2=High
3=Low

[Blocks]
/*DefinesCode_Start*/
#define PR2 %a
/*DefinesCode_End*/
/*InitialisationCode_Start*/
init(%b);
/*InitialisationCode_End*/
/*InterruptCode_Start*/
/*InterruptCode_End*/
/*Macro_EnableChannel_Start*/
enable(Channel);
/*Macro_EnableChannel_End*/
