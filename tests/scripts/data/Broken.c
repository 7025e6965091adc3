[MacroNames]
Count=2
1=First

[MacroParameters_First]
Count=2
1=x
