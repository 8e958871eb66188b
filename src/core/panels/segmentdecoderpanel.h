#pragma once

#include "panel.h"

// A segment decoder in the process area: it feeds one input of the seven-segment display.
// Its keyword names the input ("7S_B" a bit, "7S_D" a digit, "7S_S" a segment; "7S4_"
// the same for the four-digit display; "7S_" and "7S4_" untyped) and token 1 its index.
// It works in the display type of the layout's first seven-segment LED, its variant.
class CSegmentDecoderPanel : public CPanel
{
  public:
    explicit CSegmentDecoderPanel(const QString& line = QString());

    QString GetPortName(int i) const override;
    int GetMode() const override;
    void SetVariant(int variant) override;
    bool SetLine(const QString& line) override;

    // The picture of each decoder keyword; "" or an unknown keyword keeps 10038.
    static int BitmapFor(EPanelKind kind);
};
