// The basic families' property dialogs, driven by keys through the grid's edit: a control
// change reaches the rule, OK shows it and the tokens come out in the layout.
#include "gui/dialogtest.h"

const CText kBasicFamilies[] = {
    "SwitchTakesNamePortAndLevel|SW|PD2,PD3|title=Property Settings.(P1)|index:port=-1|"
    "shows:level=H|type:name=start|keys:port=PD3|keys:level=L|=record=SW  \tL,PD3\t\t;start|"
    "=comment=start",
    "NameThatCannotBeStoredIsRefused|KEY\tH,PD2\t\t;old|PD2|hidden:refused=true|type:name=a,b|"
    "ok=off|hidden:refused=false|type:name=a;b|ok=on|hidden:refused=true|"
    "=record=KEY \tH,PD2\t\t;a;b",
    "LampWritesNewNameButKeepsItsComment|LAMP\tH,PD2\t\t;old|PD2,PD3|shows:name=old|type:name=new|"
    "=record=LAMP\tH,PD2\t\t;new|=comment=old",
    "UntypedFlipFlopBecomesT|FF||index:type=-1|ok=off|keys:type=T|ok=on|=record=T_FF|=bitmap=10025",
    "DelayStoresTheTypedTimeOnTheGrid|DLY\t90.45S||shows:minutes=1|shows:seconds=30|"
    "shows:hundredths=45|type:minutes=2|type:seconds=3|type:hundredths=47|=record=DLY \t123.45S",
    "FourHundredthsAreTooShortTwentyMinutesDropThem|DLY||type:hundredths=04|ok=off|"
    "type:hundredths=45|enabled:hundredths=true|type:minutes=20|enabled:hundredths=false|"
    "shows:hundredths=00|ok=on|type:hours=9|ok=off|type:hours=0|=record=DLY \t1200.00S",
    "LongHourValueShowsWholeAndIsSelected|DLY\t360000000.00S||shows:hours=100000|wide:hours|"
    "ok=off|selected:hours=100000|type:hours=8|ok=on|=record=DLY \t28800.00S",
    "TimerTakesKindAndNestedTime|TIM1\tH,1.00S||index:type=-1|ok=off|keys:type=O|ok=on|"
    "nested:set=title=Time Setting;shows:seconds=1;type:minutes=19;type:seconds=59;"
    "type:hundredths=99|shows:time=0h 19m 59.95s|=record=TIM1\tN,1199.95S",
    "BuzzerWithSeveralPortsNeedsOneChosen|BUZZ\tPB1|PB1,PB2|index:port=-1|press:freq500|"
    "press:freq2000|ok=off|keys:port=PB2|ok=on|=record=BUZZ\tPB2,2000,500|=items=2",
    "CounterTypeChoiceEnablesOk|CNT\tX,5||index:type=-1|ok=off|keys:type=C|ok=on|"
    "=record=CNT \tC,5|=mode=2",
    "CounterValueOutOfRangeIsSelected|CNT\tH,1||keys:value2=40000|ok=off|selected:value2=40000|"
    "keys:value2=400|ok=on|=record=CNT \tH,400,1",
    "FourDigitDisplayEditedToBit|7SEG4|PB0|index:port=0|ok=off|keys:type=B|"
    "=record=7SEG4\t\t\t;7SEG4_B|=mode=4",
    "SerialBitTakesItsPosition|UART\t-||type:number=8|ok=off|type:number=5|ok=on|=record=UART\t5,L",
    "JumpWithoutIdStartsEmptyAndTakesOne|JPI\t0,L||shows:number=|ok=off|type:number=42|"
    "=record=JPI \t42,L|=ref=42",
    "CancelLeavesThePanelAlone|CNT\tH,1||type:value1=77|click:cancel",
};

TEST_F(PropertyDialogs, BasicFamilies)
{
    Run(kBasicFamilies);
}
