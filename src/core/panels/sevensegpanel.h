#pragma once

#include "panel.h"

// The seven-segment LED display, one digit ("7SEG") or four ("7SEG4"). Its display type,
// kept as a comment token, also tells the segment decoders of the layout how to work.
class CSevenSegPanel : public CPanel
{
  public:
    explicit CSevenSegPanel(const QString& line = QString());

    int GetMode() const override;
    QString GetPortName(int i) const override;
    bool IsIncomplete() const override;
    bool EditProperties(IPropertyEditor& editor) override;
    void UpdateCaption() override;

    // "Bit", "Digit" or "Segment" for a display type 1 to 6, "" otherwise.
    static QString ModeLabel(int mode);
};
