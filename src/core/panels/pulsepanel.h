#pragma once

#include "panel.h"

// A duty-cycled output in fixed steps: five (100, 75, 50, 25, 0 %) or three (100, 50, 0 %),
// one row a level.
class CPulsePanel : public CPanel
{
  public:
    explicit CPulsePanel(const QString& line = QString());

    QString GetPortName(int i) const override;
    QString GetComment(int i) const override;
    QString GetPortText() const override;
    bool SetLine(const QString& line) override;
    bool EditProperties(IPropertyEditor& editor) override;
    void UpdateCaption() override;
    void AcceptProperties(const QStringList& tokens, int portIndex) override;

  private:
    int LevelCount() const;
};
