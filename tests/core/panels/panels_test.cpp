// The definition line, the operations every panel inherits, and what each panel shows of its
// line: caption, rows, pictures, sides and completeness.
#include "core/panels/panelfacts.h"
#include "logicpanel.h"
#include "panelvalues.h"

TEST(PanelLine, ReadFormSplitsTrimsAndDropsEmptyTokens)
{
    const std::pair<CText, QStringList> rows[] = {
        {"LAMP" TAB "H, P10 ," TAB ";main", {"LAMP", "H", "P10", ";main"}},
        {"CNT" TAB "H,,5", {"CNT", "H", "5"}},
        // the keyword ends at a blank, later tokens do not
        {"LCD 1,\"two words\"", {"LCD", "1", "\"two words\""}},
        {"KEY H P0", {"KEY", "H P0"}},
        {"  SW" TAB TAB "L", {"SW", "L"}},
        {",SW P0", {"SW", "P0"}},
        {"", {}},
        {" , " TAB, {}},
    };
    for (const auto& [line, tokens] : rows)
        EXPECT_EQ(CPanel::SplitLine(QString::fromUtf8(line)), tokens) << line;
    // The line ends at a NUL, as its keyword does.
    EXPECT_EQ(CPanel::SplitLine(QString::fromUtf16(u"JPO\0\t5,D", 8)), QStringList{"JPO"});
}

TEST(PanelLine, WrittenFormPadsTheKeywordAndPutsTheCommentLast)
{
    const std::pair<CText, CText> rows[] = {
        {"LAMP,H,P10,;main", "LAMP" TAB "H,P10" TAB TAB ";main"},
        {"KEY,H,P00,;start", "KEY " TAB "H,P00" TAB TAB ";start"},
        {"SW", "SW  "},
        {"7SEG,;7SEG_B", "7SEG" TAB TAB TAB ";7SEG_B"},
        // a comment in the middle ends the line
        {"CNT,H,;x,5", "CNT " TAB "H" TAB TAB ";x"},
        {"SMOTO,1,500", "SMOTO" TAB "1,500"},
        {"", ""},
    };
    for (const auto& [tokens, line] : rows)
        EXPECT_EQ(CPanel::JoinLine(Split(tokens)), QString::fromUtf8(line)) << tokens;
}

const CText kEveryPanel[] = {
    "LineKeepsTextAndComment|LAMP\tH, P10 ,\t;main||tokens=LAMP,H,P10,;main|comment=main|"
    "text=LAMP\tH, P10 ,\t;main|trailing=main|line=LAMP\tH,P10\t\t;main",
    "LaterLineWithoutCommentKeepsTheOneRead|LAMP\tH,P10\t;main||>line=LAMP\tL,P11|comment=main|"
    "trailing=",
    "PortIndexFollowsThePortToken|SW\tH,P1|P0,P1|port=1|!incomplete|>line=SW\tH,P7|port=-1|"
    "incomplete",
    "PortIndexStaysWhenTheTokenIsMissing|SW\tH,P0|P0,P1|>line=SW\tH|port=0|incomplete",
    "TooFewTokensIsIncomplete|SW\tH\t\t;name||incomplete",
    "WithoutPortListOnlyTheCountMatters|SW\tH,P9||!incomplete",
    "GateIsExemptFromTheCount|AND\tR||!incomplete",
    "ProcessPictureIsOneItem|DLY\t1.00S||pictures=10027|size=32x32",
    "SidePictureOfThreeRows|UARI\tC,200,17,5||pictures=10071,10072,10073|size=64x32",
    "SidePictureOfTwoRows|UARI\tC,200,17||pictures=10071,10073",
    "SidePictureOfOneRow|UARI\tC,200||pictures=10070",
    "SidePictureMiddleRowsRepeat|PULS\tH,P1,100,75,50,25,0||pictures=10080,10081,10081,10081,10082",
    "LampPictureIsOneSideRow|LAMP\tH,P1||pictures=10079|size=64x32",
};

TEST(PanelLine, EveryPanelKeepsTextCommentPortAndCompleteness)
{
    CheckPanels(kEveryPanel);
}

TEST(PanelValues, ReadNumbersLenientlyAndSortDistinctValues)
{
    const std::pair<CText, int> ints[] = {{"8000MHz", 8000}, {"  -12x", -12},
                                          {"+7", 7},         {"abc", 0},
                                          {"", 0},           {"99999999999", INT_MAX}};
    for (const auto& [text, value] : ints)
        EXPECT_EQ(LeadingInt(text), value) << text;
    const std::pair<QStringList, CText> lists[] = {
        {{"10", "300", "10", "5"}, "300,10,5"},
        {{"5", "5", "0"}, "5,0"},
        {{"", " ", "1"}, "1"},
        {{}, ""},
    };
    for (const auto& [values, sorted] : lists)
        EXPECT_EQ(DescendingDistinct(values), Split(sorted)) << sorted;
    EXPECT_EQ(SecondsText(90, 5), "90.05");
}

const CText kProcessPanels[] = {
    "CounterCyclic|CNT\tC,5||mode=2|caption= : TYPE=Cyclic  |items=1|pictures=10026|labels=5",
    "CounterHold|CNT\tH,5||mode=1|name3=Hold",
    "CounterOfNoType|CNT\tX,5||mode=0|caption= : ",
    "CounterValuesAreStackedPictures|CNT\tC,300,10,5||items=3|pictures=10029,10030,10031|"
    "labels=300,10,5",
    "CounterOfTwoValues|CNT\tC,9,8||pictures=10029,10031",
    "CounterWithoutValuesIsUnlabelled|CNT\tC||pictures=10026|labels=|incomplete",
    "CounterOkRecountsItems|CNT\tC,1||dialog=Counter|>ok=CNT,H,300,10,5|items=3|"
    "caption= : TYPE=Hold  ",
    "DelayShowsItsTime|DLY\t90.45S||caption= : TIME=90.45S  |name0=|!incomplete",
    "DelayWithoutTime|DLY||incomplete|caption= : ",
    "FlipFlopUntyped|FF||incomplete|bitmap=10022",
    "FlipFlopUntypedLineKeepsThePicture|RSFF||bitmap=10023|>line=FF|bitmap=10023|incomplete",
    "FlipFlopOkSetsTypeAndPicture|FF\t\t;old||dialog=FlipFlop|>ok=T_FF|line=T_FF|bitmap=10025|"
    "!incomplete",
    "JumpInUp|JPI\t5,U||bitmap=10033|sides=U|ref=5|line=JPI \t5,U|rotates|weight=0",
    "JumpInOddSideIsLeft|JPI\t5,Q||bitmap=10034|sides=L|line=JPI \t5,Q",
    "JumpWithoutIdOrSide|JPI||bitmap=10034|sides=L|ref=0|line=JPI \t0,L|incomplete|turn|rereads",
    "JumpWithEmptyId|JPO\t,D||bitmap=10035|sides=R|ref=0|line=JPO \t0,R|turn|rereads",
    "JumpWithoutSide|JPO\t7\t\t;top||sides=R|ref=7|line=JPO \t7,R\t\t;top|turn|rereads",
    "JumpWithCommentFirst|JPO ;top\t7,D||sides=R|ref=0|line=JPO \t0,R\t\t;top|turn|rereads",
    "JumpIdZeroIsIncomplete|JPI\t0,L||incomplete|pictures=10034|labels=",
    "JumpIdShown|JPO\t99,R||!incomplete|labels=99",
    "JumpInTurnsUpAndBack|JPI\t3,L||turn|bitmap=10033|line=JPI \t3,U|turn|bitmap=10034|sides=L",
    "JumpOutTurnsDown|JPO\t3,R||turn|line=JPO \t3,D|sides=D",
    "JumpOkSetsTheReference|JPO\t1,R||dialog=Jump|>ok=JPO,42,R|ref=42",
    "NotRight|NOT\tR||bitmap=10010|sides=LR|!incomplete|!needsproperties",
    "AndDown|AND\tD||bitmap=10013|sides=UDL|line=AND \tD",
    "XorDown|XOR\tD||bitmap=10017|sides=UDL|!incomplete|!needsproperties",
    "OffRight|OFF\tR||bitmap=10019|sides=R|line=OFF \tR",
    "OnTurnsDownAndBackNeverOff|ON\tR||turn|bitmap=10020|line=ON  \tD|turn|bitmap=10018",
    "OffTurnsRight|OFF\tD||turn|bitmap=10019",
    "GateTurns|NOT\tR||turn|sides=UD|line=NOT \tD",
    "GateWithoutOrientationTurnsToNothing|XOR||turn|sides=",
    "TimerOneShot|TIM1\tN,1.50S||>name=T1|caption=T1 : TYPE=OneShot  TIME=1.50S  |note0=N|"
    "pictures=10028|notes=N|labels=|titles=",
    "TimerToggle|TIM\tT,2.00S||caption= : TYPE=Toggle  TIME=2.00S  ",
    "TimerRetriggerable|TIM1\tR,2.00S||caption= : TYPE=OneShot Retriggerble  TIME=2.00S  ",
    "TimerCaptionReadsTheLetterAlone|TIM1\tH||caption= : TYPE=Hold  |incomplete",
    "TimerOfNoKind|TIM\tZ,1.00S||caption= : TIME=1.00S  ",
    "SegmentDecoderVariantComesFromTheDisplay|7S_B\t3||mode=0|>variant=4|mode=4|variant=4|"
    "labels=3|sides=L",
    "SegmentDecoderWithoutValue|7S_B||incomplete",
    "SerialBitOfChannelZero|UART0||bitmap=275|incomplete",
    "SerialBitNamesEveryRowByItsPosition|UART\t3,L||name0=bit3|name5=bit3|sides=L",
    "SerialBitWithoutPosition|UART\t-,L||name0=",
    "StepMotorHasFourRows|SMOT\t2,20||>name=M1|caption=M1 : 2 phase excitation,20ms/step|items=4|"
    "pictures=245,246,247,248",
    "StepMotorOnePhase|SMOT\t1,10||caption= : 1 phase excitation,10ms/step",
    "StepMotorOfNoMode|SMOT\t3,20||caption= : 20ms/step",
    "StepMotorWithoutArguments|SMOT||items=4|caption= : ",
};

TEST(ProcessPanels, ShowTheirLine)
{
    CheckPanels(kProcessPanels);
}

// A wire of no kind keeps its text, so a save loses nothing of it.
const CText kWires[] = {
    "UpDown|LINE\tUD||bitmap=10001|sides=UD|line=LINE\tUD|caption=|weight=0",
    "SwappedPairs|LINE\tLR,UD||bitmap=10008|sides=DLR|line=LINE\tLR,LD",
    "UnknownSecondPair|LINE\tUD,XX||bitmap=10006|sides=UDLR|line=LINE\tUD,LR",
    "NoSuchPair|LINE\tUR,LR||bitmap=60000|sides=|line=LINE\tUR,LR|incomplete|rereads",
    "ReversedName|LINE\tDL||bitmap=60000|line=LINE\tDL",
    "ThreePairs|LINE\tUR,LD,UD||bitmap=60000|line=LINE\tUR,LD,UD",
    "CommentFirst|LINE\t;\tH,PB5\t\t;UR||bitmap=60000|line=LINE\t|rereads",
    "CommentAfterTheRun|LINE\tUD\t\t;x||bitmap=10001|line=LINE\tUD|rereads",
    "CommentsAfterARun|LINE\tLR,\t;0\t;11||bitmap=10002|rereads",
    "Bare|LINE||bitmap=60000|line=LINE\t|incomplete|caption=",
};

TEST(ProcessPanels, WiresReadLooselyAndWriteTheTablesForm)
{
    CheckPanels(kWires);
}

TEST(ProcessPanels, GateRefusesBadLinesAndKeepsItsKind)
{
    auto gate = CPanelFactory::Create("AND\tR");
    EXPECT_FALSE(gate->SetLine("ORD"));
    EXPECT_FALSE(gate->SetLine("AND\tX"));
    EXPECT_EQ(gate->GetBitmapId(), 10012);
    EXPECT_TRUE(gate->SetLine("OR\tD"));
    EXPECT_EQ(gate->GetBitmapId(), 10015);
    EXPECT_EQ(CLogicPanel("ORD").GetBitmapId(), 60000);
    EXPECT_FALSE(CPanelFactory::Create("ORD"));
}

// Each kind and orientation has its picture and joins its sides: "LINE=PICTURE:SIDES".
const CText kShapes[] = {
    "NOT\tD=10011:UD AND\tR=10012:ULR OR\tR=10014:ULR OR\tD=10015:UDL XOR\tR=10016:ULR",
    "ON\tR=10018:R ON\tD=10020:D OFF\tD=10021:D D_FF=10024:ULR UART0\t3,L=10037:L",
    "JPI\t5,L=10034:L JPO\t7,X=10035:R JPO\t7,D=10036:D 7S_\t0=10038:L 7S4_\t0=10039:L",
    "7S_B\t0=10041:L 7S_D\t0=10042:L 7S_S\t0=262:L 7S4_B\t0=263:L 7S4_D\t0=264:L 7S4_S\t0=265:L",
    "LINE\tLR=10002:LR LINE\tUR=10003:UR LINE\tLD=10004:DL LINE\tUR,LD=10005:UDLR",
    "LINE\tUD,LR=10006:UDLR LINE\tUR,UD=10007:UDR LINE\tLR,LD=10008:DLR",
    "KEY\tH,P1=10074:R DGI\tH,P1=10076:R LAMP\tH,P1=10083:L DGO\tH,P1=10084:L",
};

TEST(ProcessPanels, PictureAndSidesFollowKindAndOrientation)
{
    for (const QString row : kShapes)
        for (const QString& shape : row.split(u' ')) {
            const auto panel = MakePanel(shape.section(u'=', 0, 0));
            const QString drawn = QString("%1:%2").arg(panel->GetBitmapId()).arg(panel->GetSides());
            EXPECT_EQ(drawn.toStdString(), shape.section(u'=', 1).toStdString())
                << shape.toStdString();
        }
}

const CText kSidePanels[] = {
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
