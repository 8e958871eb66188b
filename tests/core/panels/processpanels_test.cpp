// Panels of the process area: counter, delay, flip-flops, jumps, gates, timer, wires,
// segment decoders, the serial bit and the stepping motor.
#include "core/panels/panelfacts.h"
#include "logicpanel.h"

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
    "FlipFlopD|D_FF||bitmap=10024",
    "FlipFlopUntypedLineKeepsThePicture|RSFF||bitmap=10023|>line=FF|bitmap=10023|incomplete",
    "FlipFlopOkSetsTypeAndPicture|FF\t\t;old||dialog=FlipFlop|>ok=T_FF|line=T_FF|bitmap=10025|"
    "!incomplete",
    "JumpInUp|JPI\t5,U||bitmap=10033|sides=U|ref=5|line=JPI \t5,U|rotates|weight=0",
    "JumpInLeft|JPI\t5,L||bitmap=10034|sides=L|line=JPI \t5,L",
    "JumpInOddSideIsLeft|JPI\t5,Q||bitmap=10034|sides=L|line=JPI \t5,Q",
    "JumpOutOddSideIsRight|JPO\t7,X||bitmap=10035|sides=R|ref=7|line=JPO \t7,X",
    "JumpOutDown|JPO\t7,D||bitmap=10036|sides=D",
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
    "NotDown|NOT\tD||bitmap=10011|sides=UD",
    "AndRight|AND\tR||bitmap=10012|sides=ULR",
    "AndDown|AND\tD||bitmap=10013|sides=UDL|line=AND \tD",
    "OrRight|OR\tR||bitmap=10014|sides=ULR",
    "OrDown|OR\tD||bitmap=10015|sides=UDL",
    "XorRight|XOR\tR||bitmap=10016|sides=ULR",
    "XorDown|XOR\tD||bitmap=10017|sides=UDL|!incomplete|!needsproperties",
    "OnRight|ON\tR||bitmap=10018|sides=R",
    "OffRight|OFF\tR||bitmap=10019|sides=R|line=OFF \tR",
    "OnDown|ON\tD||bitmap=10020|sides=D",
    "OffDown|OFF\tD||bitmap=10021|sides=D",
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
    "SegmentDecoderOfOneDigit|7S_\t0||bitmap=10038",
    "SegmentDecoderOfFourDigits|7S4_\t0||bitmap=10039",
    "SegmentDecoderBit|7S_B\t0||bitmap=10041",
    "SegmentDecoderDigit|7S_D\t0||bitmap=10042",
    "SegmentDecoderSegment|7S_S\t0||bitmap=262",
    "SegmentDecoderFourBit|7S4_B\t0||bitmap=263",
    "SegmentDecoderFourDigit|7S4_D\t0||bitmap=264",
    "SegmentDecoderFourSegment|7S4_S\t0||bitmap=265",
    "SegmentDecoderVariantComesFromTheDisplay|7S_B\t3||mode=0|>variant=4|mode=4|variant=4|"
    "labels=3|sides=L",
    "SegmentDecoderWithoutValue|7S_B||incomplete",
    "SerialBitOfChannelZero|UART0||bitmap=275|incomplete",
    "SerialBitWithPosition|UART0\t3,L||bitmap=10037",
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
    "LeftRight|LINE\tLR||bitmap=10002|sides=LR|line=LINE\tLR",
    "UpRight|LINE\tUR||bitmap=10003|sides=UR|line=LINE\tUR",
    "LeftDown|LINE\tLD||bitmap=10004|sides=DL|line=LINE\tLD|!incomplete",
    "Cross|LINE\tUR,LD||bitmap=10005|sides=UDLR|line=LINE\tUR,LD",
    "Over|LINE\tUD,LR||bitmap=10006|sides=UDLR|line=LINE\tUD,LR",
    "TeeRight|LINE\tUR,UD||bitmap=10007|sides=UDR|line=LINE\tUR,UD",
    "TeeDown|LINE\tLR,LD||bitmap=10008|sides=DLR|line=LINE\tLR,LD",
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
