#pragma once

#include "panel.h"

// What the switch and the lamp share: the line "keyword, active level, port, ;name", the
// "Switch Setting" dialog and the caption with port and active level.
class CDigitalPanel : public CPanel
{
  public:
    QString GetPortText() const override;
    bool SetLine(const QString& line) override;
    bool EditProperties(IPropertyEditor& editor) override;
    void UpdateCaption() override;
    void AcceptProperties(const QStringList& tokens, int portIndex) override;

  protected:
    explicit CDigitalPanel(const CPanelDefaults& defaults) : CPanel(defaults) {}
    // The picture follows the keyword actually read.
    virtual int BitmapFor(EPanelKind kind) const = 0;
};
