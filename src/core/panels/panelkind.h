#pragma once

// What a panel is, known from its keyword alone: one kind for each keyword the factory's
// table recognises, in that table's order, and None for a keyword it does not know. Code
// that asks what a panel is asks this, never its class or its picture.
enum class EPanelKind
{
    None,
    Key,
    Switch,
    AnalogIn,
    DigitalIn,
    SerialIn,
    SerialIn0,
    DigitalOut,
    Buzzer,
    Lamp,
    Pwm,
    SerialOut,
    SerialOut0,
    SevenSeg,
    SevenSeg4,
    Wire,
    JumpIn,
    SerialBit,
    SerialBit0,
    Decoder,
    Decoder4,
    BitDecoder,
    DigitDecoder,
    SegmentDecoder,
    BitDecoder4,
    DigitDecoder4,
    SegmentDecoder4,
    JumpOut,
    Not,
    And,
    Or,
    Xor,
    On,
    Off,
    Counter,
    Delay,
    Timer,
    Timer1,
    RsFlipFlop,
    TFlipFlop,
    DFlipFlop,
    FlipFlop,
    StepMotor,
    Pulse,
    Lcd,
    WebIn,
    WebOut,
    StepMotorOut,
};

// The families the grid and the check treat alike.
constexpr bool IsSevenSegDisplay(EPanelKind kind)
{
    return kind == EPanelKind::SevenSeg || kind == EPanelKind::SevenSeg4;
}
constexpr bool IsDecoder(EPanelKind kind)
{
    return kind >= EPanelKind::Decoder && kind <= EPanelKind::SegmentDecoder4;
}
constexpr bool IsJump(EPanelKind kind)
{
    return kind == EPanelKind::JumpIn || kind == EPanelKind::JumpOut;
}
constexpr bool IsGate(EPanelKind kind)
{
    return kind >= EPanelKind::Not && kind <= EPanelKind::Off;
}
