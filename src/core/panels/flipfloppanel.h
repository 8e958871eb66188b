#pragma once

#include "panel.h"

// Stores one bit: RS ("RSFF"), T ("T_FF") or D ("D_FF"). "FF" is a flip-flop whose type
// is still to be chosen, and stays incomplete until it is.
class CFlipFlopPanel : public CPanel
{
  public:
    explicit CFlipFlopPanel(const QString& line = QString());

    bool IsIncomplete() const override;
    bool SetLine(const QString& line) override;
    bool EditProperties(IPropertyEditor& editor) override;
    void AcceptProperties(const QStringList& tokens, int portIndex) override;

    // The picture of a typed keyword, 0 for any other.
    static int BitmapFor(EPanelKind kind);
};
