// Panels of the process area: counter, delay, flip-flops, jumps, gates, timer, wires,
// segment decoders, the serial bit and the stepping motor.
#include "logicpanel.h"
#include "core/panels/paneltest.h"

namespace {

QList<int> PictureIds(CPanel& panel)
{
    CPanelImage image;
    panel.MakeImage(image);
    QList<int> ids;
    for (const CPanelImageItem& item : image.Items)
        ids << item.BitmapId;
    return ids;
}

QStringList PortTexts(CPanel& panel)
{
    CPanelImage image;
    panel.MakeImage(image);
    QStringList texts;
    for (const CPanelImageItem& item : image.Items)
        texts << item.PortText;
    return texts;
}

} // namespace

TEST(Counter, TypeModeAndCaption)
{
    auto cyclic = MakePanel("CNT\tC,5");
    EXPECT_EQ(cyclic->GetMode(), 2);
    EXPECT_EQ(cyclic->GetCaption(), " : TYPE=Cyclic  ");
    EXPECT_EQ(cyclic->GetItemCount(), 1);
    EXPECT_EQ(PictureIds(*cyclic), QList<int>{10026});
    EXPECT_EQ(PortTexts(*cyclic), QStringList{"5"});

    auto hold = MakePanel("CNT\tH,5");
    EXPECT_EQ(hold->GetMode(), 1);
    EXPECT_EQ(hold->GetPortName(3), "Hold");

    auto odd = MakePanel("CNT\tX,5");
    EXPECT_EQ(odd->GetMode(), 0);
    EXPECT_EQ(odd->GetCaption(), " : ");
    EXPECT_EQ(MakePanel("CNT")->GetMode(), 0);
}

TEST(Counter, EveryValueIsAStackedPicture)
{
    auto counter = MakePanel("CNT\tC,300,10,5");
    EXPECT_EQ(counter->GetItemCount(), 3);
    EXPECT_EQ(PictureIds(*counter), (QList<int>{10029, 10030, 10031}));
    EXPECT_EQ(PortTexts(*counter), (QStringList{"300", "10", "5"}));
    EXPECT_EQ(PictureIds(*MakePanel("CNT\tC,9,8")), (QList<int>{10029, 10031}));
    // A counter without values still shows its picture, unlabelled.
    EXPECT_EQ(PortTexts(*MakePanel("CNT\tC")), QStringList{""});
    EXPECT_TRUE(MakePanel("CNT\tC")->IsIncomplete());
}

TEST(Counter, DialogOkRecountsItems)
{
    CFakeEditor editor;
    editor.Tokens = {"CNT", "H", "300", "10", "5"};
    auto counter = MakePanel("CNT\tC,1");
    ASSERT_TRUE(counter->EditProperties(editor));
    EXPECT_EQ(editor.Asked, EPanelDialog::Counter);
    EXPECT_EQ(counter->GetItemCount(), 3);
    EXPECT_EQ(counter->GetCaption(), " : TYPE=Hold  ");
}

TEST(Delay, CaptionShowsTheTime)
{
    auto delay = MakePanel("DLY\t90.45S");
    EXPECT_EQ(delay->GetCaption(), " : TIME=90.45S  ");
    EXPECT_EQ(delay->GetPortName(0), "");
    EXPECT_FALSE(delay->IsIncomplete());
    EXPECT_TRUE(MakePanel("DLY")->IsIncomplete());
    EXPECT_EQ(MakePanel("DLY")->GetCaption(), " : ");
}

TEST(FlipFlop, TypeComesFromTheKeyword)
{
    auto ff = MakePanel("FF");
    EXPECT_TRUE(ff->IsIncomplete());
    EXPECT_EQ(ff->GetBitmapId(), 10022);
    EXPECT_EQ(MakePanel("RSFF")->GetBitmapId(), 10023);
    EXPECT_EQ(MakePanel("D_FF")->GetBitmapId(), 10024);
    EXPECT_EQ(MakePanel("T_FF")->GetBitmapId(), 10025);
    EXPECT_FALSE(MakePanel("T_FF")->IsIncomplete());

    auto rs = MakePanel("RSFF");
    rs->SetLine("FF");
    EXPECT_EQ(rs->GetBitmapId(), 10023); // an untyped line keeps the picture
    EXPECT_TRUE(rs->IsIncomplete());
}

TEST(FlipFlop, DialogOkSetsTypeAndPicture)
{
    CFakeEditor editor;
    editor.Tokens = {"T_FF"};
    auto ff = MakePanel("FF\t\t;old");
    ASSERT_TRUE(ff->EditProperties(editor));
    EXPECT_EQ(ff->GetLine(), "T_FF");
    EXPECT_EQ(ff->GetBitmapId(), 10025);
    EXPECT_FALSE(ff->IsIncomplete());
}

TEST(Jump, SideAndIdFromTheLine)
{
    const struct
    {
        const char* Line;
        int BitmapId;
        const char* Sides;
        int Reference;
        const char* Written;
    } rows[] = {
        {"JPI\t5,U", 10033, "U", 5, "JPI \t5,U"},
        {"JPI\t5,L", 10034, "L", 5, "JPI \t5,L"},
        {"JPI\t5,Q", 10034, "L", 5, "JPI \t5,Q"},
        {"JPO\t7,X", 10035, "R", 7, "JPO \t7,X"},
        {"JPO\t7,D", 10036, "D", 7, "JPO \t7,D"},
        {"JPI", 10034, "L", 0, "JPI \t0,L"},
        {"JPO\t,D", 10035, "R", 0, "JPO \t0,R"},
        {"JPO\t7\t\t;top", 10035, "R", 7, "JPO \t7,R\t\t;top"},
        {"JPO ;top\t7,D", 10035, "R", 0, "JPO \t0,R\t\t;top"},
    };
    for (const auto& row : rows) {
        auto jump = MakePanel(row.Line);
        EXPECT_EQ(jump->GetBitmapId(), row.BitmapId) << row.Line;
        EXPECT_EQ(jump->GetSides(), row.Sides) << row.Line;
        EXPECT_EQ(jump->GetReference(), row.Reference) << row.Line;
        EXPECT_EQ(jump->GetLine(), row.Written) << row.Line;
        // A jump without an id is saved with one that reads back the same, its side too.
        jump->Rotate();
        EXPECT_EQ(MakePanel(jump->GetLine())->GetLine(), jump->GetLine()) << row.Line;
        EXPECT_TRUE(jump->CanRotate());
        EXPECT_EQ(jump->GetWeight(), 0);
    }
}

TEST(Jump, CompletenessNeedsAnIdOfOneOrMore)
{
    EXPECT_TRUE(MakePanel("JPI")->IsIncomplete());
    EXPECT_TRUE(MakePanel("JPI\t0,L")->IsIncomplete());
    EXPECT_FALSE(MakePanel("JPI\t99,L")->IsIncomplete());
    EXPECT_EQ(PortTexts(*MakePanel("JPI\t0,L")), QStringList{""});
    EXPECT_EQ(PortTexts(*MakePanel("JPO\t12,R")), QStringList{"12"});
}

TEST(Jump, TurningSwitchesTheSideButNeverTheDirection)
{
    auto in = MakePanel("JPI\t3,L");
    EXPECT_TRUE(in->Rotate());
    EXPECT_EQ(in->GetBitmapId(), 10033);
    EXPECT_EQ(in->GetLine(), "JPI \t3,U");
    in->Rotate();
    EXPECT_EQ(in->GetBitmapId(), 10034);
    EXPECT_EQ(in->GetSides(), "L");

    auto out = MakePanel("JPO\t3,R");
    out->Rotate();
    EXPECT_EQ(out->GetLine(), "JPO \t3,D");
    EXPECT_EQ(out->GetSides(), "D");
}

TEST(Jump, DialogOkSetsTheReference)
{
    CFakeEditor editor;
    editor.Tokens = {"JPO", "42", "R"};
    auto jump = MakePanel("JPO\t1,R");
    ASSERT_TRUE(jump->EditProperties(editor));
    EXPECT_EQ(editor.Asked, EPanelDialog::Jump);
    EXPECT_EQ(jump->GetReference(), 42);
}

TEST(Logic, EveryKindHasItsPictureAndSides)
{
    const struct
    {
        const char* Line;
        int BitmapId;
        const char* Sides;
    } rows[] = {
        {"NOT\tR", 10010, "LR"},  {"NOT\tD", 10011, "UD"},  {"AND\tR", 10012, "ULR"},
        {"AND\tD", 10013, "UDL"}, {"OR\tR", 10014, "ULR"},  {"OR\tD", 10015, "UDL"},
        {"XOR\tR", 10016, "ULR"}, {"XOR\tD", 10017, "UDL"}, {"ON\tR", 10018, "R"},
        {"OFF\tR", 10019, "R"},   {"ON\tD", 10020, "D"},    {"OFF\tD", 10021, "D"},
    };
    for (const auto& row : rows) {
        auto gate = MakePanel(row.Line);
        EXPECT_EQ(gate->GetBitmapId(), row.BitmapId) << row.Line;
        EXPECT_EQ(gate->GetSides(), row.Sides) << row.Line;
        EXPECT_FALSE(gate->IsIncomplete());
        EXPECT_FALSE(gate->NeedsProperties());
    }
    EXPECT_EQ(MakePanel("AND\tD")->GetLine(), "AND \tD");
    EXPECT_EQ(MakePanel("OFF\tR")->GetLine(), "OFF \tR");
}

TEST(Logic, BadLinesAreRefusedAndKeepTheKind)
{
    auto gate = CPanelFactory::Create("AND\tR");
    EXPECT_FALSE(gate->SetLine("ORD"));
    EXPECT_FALSE(gate->SetLine("AND\tX"));
    EXPECT_EQ(gate->GetBitmapId(), 10012);
    EXPECT_TRUE(gate->SetLine("OR\tD"));
    EXPECT_EQ(gate->GetBitmapId(), 10015);
    EXPECT_EQ(CLogicPanel("ORD").GetBitmapId(), 60000);
    EXPECT_FALSE(CPanelFactory::Create("ORD")); // not a keyword either
}

TEST(Logic, TurningFlipsTheOrientationOnly)
{
    auto on = MakePanel("ON\tR");
    EXPECT_TRUE(on->Rotate());
    EXPECT_EQ(on->GetBitmapId(), 10020);
    EXPECT_EQ(on->GetLine(), "ON  \tD");
    on->Rotate();
    EXPECT_EQ(on->GetBitmapId(), 10018); // back to ON, never OFF

    auto off = MakePanel("OFF\tD");
    off->Rotate();
    EXPECT_EQ(off->GetBitmapId(), 10019);

    auto gate = MakePanel("NOT\tR");
    gate->Rotate();
    EXPECT_EQ(gate->GetSides(), "UD");
    EXPECT_EQ(gate->GetLine(), "NOT \tD");

    auto blank = CPanelFactory::Create("XOR");
    EXPECT_TRUE(blank->Rotate());
    EXPECT_EQ(blank->GetSides(), "");
}

TEST(Timer, CaptionAndPictureLetter)
{
    auto timer = MakePanel("TIM1\tN,1.50S");
    timer->SetName("T1");
    EXPECT_EQ(timer->GetCaption(), "T1 : TYPE=OneShot  TIME=1.50S  ");
    EXPECT_EQ(timer->GetComment(0), "N");
    CPanelImage image;
    timer->MakeImage(image);
    EXPECT_EQ(image.Items[0], (CPanelImageItem{10028, "", "", "N"}));

    EXPECT_EQ(MakePanel("TIM\tT,2.00S")->GetCaption(), " : TYPE=Toggle  TIME=2.00S  ");
    EXPECT_EQ(MakePanel("TIM1\tR,2.00S")->GetCaption(), " : TYPE=OneShot Retriggerble  TIME=2.00S  ");
    // the caption reads the letter alone, whatever the keyword
    EXPECT_EQ(MakePanel("TIM1\tH")->GetCaption(), " : TYPE=Hold  ");
    EXPECT_TRUE(MakePanel("TIM1\tH")->IsIncomplete());
    EXPECT_EQ(MakePanel("TIM\tZ,1.00S")->GetCaption(), " : TIME=1.00S  ");
}

TEST(Wire, KindsReadAndWrittenBack)
{
    const struct
    {
        const char* Line;
        int BitmapId;
        const char* Sides;
        const char* Written;
    } rows[] = {
        {"LINE\tUD", 10001, "UD", "LINE\tUD"},
        {"LINE\tLR", 10002, "LR", "LINE\tLR"},
        {"LINE\tUR", 10003, "UR", "LINE\tUR"},
        {"LINE\tLD", 10004, "DL", "LINE\tLD"},
        {"LINE\tUR,LD", 10005, "UDLR", "LINE\tUR,LD"},
        {"LINE\tUD,LR", 10006, "UDLR", "LINE\tUD,LR"},
        {"LINE\tUR,UD", 10007, "UDR", "LINE\tUR,UD"},
        {"LINE\tLR,LD", 10008, "DLR", "LINE\tLR,LD"},
        {"LINE\tLR,UD", 10008, "DLR", "LINE\tLR,LD"}, // read loosely, written in the table's form
        {"LINE\tUD,XX", 10006, "UDLR", "LINE\tUD,LR"},
        {"LINE\tUR,LR", 60000, "", "LINE\t"},
        {"LINE\tDL", 60000, "", "LINE\t"},
        {"LINE\tUR,LD,UD", 60000, "", "LINE\t"},
        {"LINE", 60000, "", "LINE\t"},
    };
    for (const auto& row : rows) {
        auto wire = MakePanel(row.Line);
        EXPECT_EQ(wire->GetBitmapId(), row.BitmapId) << row.Line;
        EXPECT_EQ(wire->GetSides(), row.Sides) << row.Line;
        EXPECT_EQ(wire->GetLine(), row.Written) << row.Line;
        EXPECT_EQ(wire->IsIncomplete(), row.BitmapId == 60000) << row.Line;
        EXPECT_EQ(wire->GetCaption(), "");
        EXPECT_EQ(wire->GetWeight(), 0);
    }
}

TEST(SegmentDecoder, KeywordPicksThePictureAndVariantComesFromTheDisplay)
{
    EXPECT_EQ(MakePanel("7S_\t0")->GetBitmapId(), 10038);
    EXPECT_EQ(MakePanel("7S4_\t0")->GetBitmapId(), 10039);
    EXPECT_EQ(MakePanel("7S_B\t0")->GetBitmapId(), 10041);
    EXPECT_EQ(MakePanel("7S_D\t0")->GetBitmapId(), 10042);
    EXPECT_EQ(MakePanel("7S_S\t0")->GetBitmapId(), 262);
    EXPECT_EQ(MakePanel("7S4_B\t0")->GetBitmapId(), 263);
    EXPECT_EQ(MakePanel("7S4_D\t0")->GetBitmapId(), 264);
    EXPECT_EQ(MakePanel("7S4_S\t0")->GetBitmapId(), 265);

    auto decoder = MakePanel("7S_B\t3");
    EXPECT_EQ(decoder->GetMode(), 0);
    decoder->SetVariant(4);
    EXPECT_EQ(decoder->GetMode(), 4);
    EXPECT_EQ(decoder->GetVariant(), 4);
    EXPECT_EQ(PortTexts(*decoder), QStringList{"3"});
    EXPECT_EQ(decoder->GetSides(), "L");
    EXPECT_TRUE(MakePanel("7S_B")->IsIncomplete());
}

TEST(SerialBit, PictureAndPortName)
{
    EXPECT_EQ(CPanelFactory::Create("UART0")->GetBitmapId(), 275);
    EXPECT_EQ(CPanelFactory::Create("UART0\t3,L")->GetBitmapId(), 10037);
    EXPECT_EQ(CPanelFactory::Create("UART")->GetBitmapId(), 10037);
    auto bit = MakePanel("UART\t3,L");
    EXPECT_EQ(bit->GetPortName(0), "bit3");
    EXPECT_EQ(bit->GetPortName(5), "bit3");
    EXPECT_EQ(MakePanel("UART\t-,L")->GetPortName(0), "");
    EXPECT_TRUE(MakePanel("UART")->IsIncomplete());
    EXPECT_EQ(bit->GetSides(), "L");
}

TEST(StepMotor, AlwaysFourRowsWithItsOwnPictures)
{
    auto motor = MakePanel("SMOT\t2,20");
    motor->SetName("M1");
    EXPECT_EQ(motor->GetCaption(), "M1 : 2 phase excitation,20ms/step");
    EXPECT_EQ(motor->GetItemCount(), 4);
    EXPECT_EQ(PictureIds(*motor), (QList<int>{245, 246, 247, 248}));
    EXPECT_EQ(MakePanel("SMOT\t1,10")->GetCaption(), " : 1 phase excitation,10ms/step");
    EXPECT_EQ(MakePanel("SMOT\t3,20")->GetCaption(), " : 20ms/step");
    EXPECT_EQ(MakePanel("SMOT")->GetItemCount(), 4);
    EXPECT_EQ(MakePanel("SMOT")->GetCaption(), " : ");
}
