// Switch, lamp and analog input panels.
#include "core/panels/panelfacts.h"

TEST(DigitalPanels, ShowTheirLine)
{
    CheckPanels({
        {"KeyPicture", "KEY\tH,P1", "", "bitmap=10074"},
        {"DigitalInPicture", "DGI\tH,P1", "", "bitmap=10076"},
        {"LampPicture", "LAMP\tH,P1", "", "bitmap=10083"},
        {"DigitalOutPicture", "DGO\tH,P1", "", "bitmap=10084"},
        {"PictureFollowsTheKeywordRead", "KEY\tH,P1", "", ">line=SW\tH,P1|bitmap=10075"},
        {"CaptionShowsTheBoardsLabelAndLevel", "SW\tL,PD2", "PD2:D2,PD3",
         ">name=Go|caption=Go : PORT=PD2(D2)  ACTIVE=L  |>line=SW\tL,PD3|"
         "caption=Go : PORT=PD3  ACTIVE=L  |>line=SW|caption=Go : |>line=SW\tH|"
         "caption=Go : ACTIVE=H  "},
        {"LabelSameAsThePortIsNotRepeated", "SW\tL,PD3", "PD3:PD3",
         "caption= : PORT=PD3  ACTIVE=L  "},
        {"SwitchShowsItsNameAsComment", "KEY\tH,P1\t\t;start", "",
         "note0=start|note1=|name0=|porttext=P1"},
        {"LampShowsItsNameAsPort", "LAMP\tH,P1\t\t;run", "",
         "name0=run|name1=|note0=|>name=Lamp|pictures=10079|titles=Lamp|labels=run|notes="},
        {"SwitchOkResolvesThePortAndTakesTheNameAtOnce", "SW", "P0,P1",
         "incomplete=true|dialog=Switch|line=SW  |>ok=SW,H,P1,;new|line=SW  \tH,P1\t\t;new|port=1|"
         "incomplete=false|comment=new"},
        {"LampTakesItsNewNameOnlyWhenReadAgain", "LAMP\tH,P1\t\t;old", "P0,P1",
         ">ok=LAMP,L,P0,;new|line=LAMP\tL,P0\t\t;new|port=0|comment=old|"
         ">line=LAMP\tL,P0\t\t;new|comment=new"},
        {"AnalogRowsAreTheArgumentsPastThree", "ANI\tH,A0,x,y\t\t;temp", "A0",
         "bitmap=10077|sides=R|items=2|name0=A0|note0=temp|incomplete=false|"
         "line=ANI \tH,A0,x,y\t\t;temp"},
        {"AnalogNeedsThreeArguments", "ANI\tH,A0", "A0", "incomplete=true"},
        {"AnalogPortMustBeTheBoards", "ANI\tH,A9,x", "A0", "incomplete=true"},
        {"AnalogHasOneRowAtLeast", "ANI\tH", "", "items=1"},
    });
}
