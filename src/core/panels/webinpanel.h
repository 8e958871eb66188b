#pragma once

#include "panel.h"

// Signals received over the board's network: one row a bit, 1 to 10 bits.
class CWebInPanel : public CPanel
{
  public:
    explicit CWebInPanel(const QString& line = QString());

    QString GetPortName(int i) const override;
    QString GetComment(int i) const override;
    bool SetLine(const QString& line) override;
    bool EditProperties(IPropertyEditor& editor) override;
    void UpdateCaption() override;
    void AcceptProperties(const QStringList& tokens, int portIndex) override;

  private:
    int BitCount() const;
};
