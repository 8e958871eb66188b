// Panels of the input and output columns: switch, lamp, analog input, buzzer, seven-segment
// LED, serial receive and send, pulse, PWM, network in and out, LCD and the motor driver.
#include "core/panels/panelfacts.h"

const CText kSidePanels[] = {
    "KeyPicture|KEY\tH,P1||bitmap=10074",
    "DigitalInPicture|DGI\tH,P1||bitmap=10076",
    "LampPicture|LAMP\tH,P1||bitmap=10083",
    "DigitalOutPicture|DGO\tH,P1||bitmap=10084",
    "PictureFollowsTheKeywordRead|KEY\tH,P1||>line=SW\tH,P1|bitmap=10075",
    "CaptionShowsTheBoardsLabelAndLevel|SW\tL,PD2|PD2:D2,PD3|>name=Go|"
    "caption=Go : PORT=PD2(D2)  ACTIVE=L  |>line=SW\tL,PD3|caption=Go : PORT=PD3  ACTIVE=L  |"
    ">line=SW|caption=Go : |>line=SW\tH|caption=Go : ACTIVE=H  ",
    "LabelSameAsThePortIsNotRepeated|SW\tL,PD3|PD3:PD3|caption= : PORT=PD3  ACTIVE=L  ",
    "SwitchShowsItsNameAsComment|KEY\tH,P1\t\t;start||note0=start|note1=|name0=|porttext=P1",
    "LampShowsItsNameAsPort|LAMP\tH,P1\t\t;run||name0=run|name1=|note0=|>name=Lamp|pictures=10079|"
    "titles=Lamp|labels=run|notes=",
    "SwitchOkResolvesThePortAndTakesTheNameAtOnce|SW|P0,P1|incomplete|dialog=Switch|line=SW  |"
    ">ok=SW,H,P1,;new|line=SW  \tH,P1\t\t;new|port=1|!incomplete|comment=new",
    "LampTakesItsNewNameOnlyWhenReadAgain|LAMP\tH,P1\t\t;old|P0,P1|>ok=LAMP,L,P0,;new|"
    "line=LAMP\tL,P0\t\t;new|port=0|comment=old|>line=LAMP\tL,P0\t\t;new|comment=new",
    "AnalogRowsAreTheArgumentsPastThree|ANI\tH,A0,x,y\t\t;temp|A0|bitmap=10077|sides=R|items=2|"
    "name0=A0|note0=temp|!incomplete|line=ANI \tH,A0,x,y\t\t;temp",
    "AnalogNeedsThreeArguments|ANI\tH,A0|A0|incomplete",
    "AnalogPortMustBeTheBoards|ANI\tH,A9,x|A0|incomplete",
    "AnalogHasOneRowAtLeast|ANI\tH||items=1",
    "BuzzerHasARowAFrequency|BUZZ\tPB1,2000,500|PB1|items=2|"
    "caption= : PORT=PB1  FREQ=2000Hz/500Hz  |pictures=10080,10082|labels=,|notes=2000Hz,500Hz|"
    "!incomplete",
    "BuzzerPortIsNotChecked|BUZZ\tPX,500|PB1|!incomplete",
    "BuzzerPortAloneIsOneUnlabelledRow|BUZZ\tPB1||items=1|incomplete|pictures=10079|notes=|"
    "caption= : PORT=PB1  ",
    "BuzzerCommentIsNoRow|BUZZ\tPB1,1000\t\t;b||items=1|note1=",
    "BuzzerOkCountsTheFrequencies|BUZZ\tPB1,500||dialog=Buzzer|>ok=BUZZ,PB1,2000,1000,500|items=3|"
    "caption= : PORT=PB1  FREQ=2000Hz/1000Hz/500Hz  ",
    "SevenSegBit|7SEG\t;7SEG_B||mode=1|name2=Bit|!incomplete",
    "SevenSegDigit|7SEG\t;7SEG_D||mode=2|name2=Digit",
    "SevenSegSegment|7SEG\t;7SEG_S||mode=3|name2=Segment",
    "SevenSegFourBit|7SEG4\t;7SEG4_B||mode=4|name2=Bit|caption= : TYPE=Bit  |"
    "line=7SEG4\t\t\t;7SEG4_B",
    "SevenSegFourDigit|7SEG4\t;7SEG4_D||mode=5|name2=Digit",
    "SevenSegFourSegment|7SEG4\t;7SEG4_S||mode=6|name2=Segment",
    "SevenSegModeFromTheTypeTokenOnly|7SEG\t;7SEG4_D||mode=5",
    "SevenSegTypeIsCaseSensitive|7SEG\t;7seg_b||mode=0|name2=|incomplete",
    "SevenSegWithoutType|7SEG||mode=0|incomplete|caption= : ",
    "SerialInCompareHasARowAValue|UARI\tC,200,17,5\t\t;rx|PD0(RxD6)|mode=1|items=3|"
    "caption= : PORT=PD0(RxD6)  TYPE=Compare  |pictures=10071,10072,10073|labels=200,17,5|"
    "notes=rx,,|name3=",
    "SerialInBitRowsReadFromBit7Down|UARI0\tB,3||mode=3|items=3|name0=bit7|name2=bit5|name3=|"
    "caption= : TYPE=Bit  ",
    "SerialInOfUnknownMode|UARI\tCW,5,6||mode=0|items=1|name0=",
    "SerialInShortLine|UARI\tC||name0=|incomplete",
    "SerialInOkSetsTheRowCountWithoutMinimum|UARI\tC,1||dialog=SerialIn|>ok=UARI,B,8,;rx|items=8|"
    ">ok=UARI,C,200,17,5|items=3",
    "SerialOutShowsItsPortOnly|UARO|PD1(TxD),PD5|porttext=PD1(TxD)|caption= : PORT=PD1(TxD)  |"
    "name0=|!incomplete",
    "SerialOutWithoutPorts|UARO||caption= : ",
    "PulseLevelsAreRowsOfPercent|PULS\tH,PB2,100,75,50,25,0\t\t;motor|PB2|items=5|"
    "caption= : PORT=PB2  |note0=100%|note4=0%|note5=|name0=motor|!incomplete",
    "PulseWithoutLevels|PULS\tH,PB2||items=1|incomplete",
    "PulseOkTakesTokensAndPort|PULS\tH,PB2,100,75,50,25,0|PB1,PB2|dialog=Pulse|"
    ">ok=PULS,H,PB2,100,50,0@1|items=3|port=1",
    "PwmFrequencyAndDutyRows|PWM\t1000Hz,100,50,0|PB1,PB2|items=3|name0=1000Hz|name1=|note1=50%|"
    "porttext=PB1|caption= : |!incomplete",
    "PwmWithoutDutiesHasNoRows|PWM\t1000Hz,100||dialog=Pwm|>ok=PWM,500Hz@0|items=0|port=0|"
    "incomplete",
    "WebInRowsNamedFromTheTopBit|WEBIN\t10\t\t;net||>name=WEB1|items=10|name0=WEB.9|name9=WEB.0|"
    "name10=|note0=net|caption=WEB1 : 10bit|dialog=WebIn|>ok=WEBIN,2,;|items=2|note0=",
    "WebInWithoutCount|WEBIN||items=1|incomplete",
    "WebOutIsNeverIncompleteAndHasNoDialog|WEBOUT||!incomplete|bitmap=10092|>name=W|caption=W : |"
    "dialog=None",
    "LcdShowsLineAndText|LCD\t1,\"Hello\"||>name=L1|caption=L1: Line=1, \"Hello\"|note0=Hello|"
    "dialog=Lcd",
    "LcdClear|LCD\t0,\"\"||caption=: Clear|!incomplete",
    "LcdOfUnknownLine|LCD\t3,\"x\"||caption=: ",
    "LcdKeepsInnerQuotes|LCD\t2,\"\"a\"\"||note0=\"a\"",
    "LcdWithoutText|LCD\t2||note0=",
    "MotorDriverHasEnableAndDirRows|SMOTO\t1,500|PD4|items=2|pictures=10080,10082|"
    "notes=Enable,Dir|caption= : 1-2 phase excitation, 500ms/step, PORT=PD4",
    "MotorDriverTwoPhase|SMOTO\t2,20||caption= : 2 phase excitation, 20ms/step",
    "MotorDriverHasTwoRowsWhateverFollows|SMOTO\t2,20,x,y,z||items=2",
    // A bit count of millions once made a panel of millions of rows and picture items.
    "HugeSerialBitCountIsBoundedRegression|UARI\tB,99999999||items=41|name41=",
    "HugeNetworkBitCountIsBoundedRegression|WEBIN\t2147483647||items=41",
};

TEST(SidePanels, ShowTheirLine)
{
    CheckPanels(kSidePanels);
}
