#pragma once

#include "panel.h"

// Turns received serial bytes into input signals: in compare mode ("C") one row for each
// byte value it recognises, in bit mode ("B") one row for each of the lower bits.
class CSerialInPanel : public CPanel
{
  public:
    explicit CSerialInPanel(const QString& line = QString());

    QString GetPortName(int i) const override;
    QString GetComment(int i) const override;
    int GetMode() const override;
    QString GetPortText() const override;
    bool SetLine(const QString& line) override;
    bool EditProperties(IPropertyEditor& editor) override;
    void UpdateCaption() override;
    void AcceptProperties(const QStringList& tokens, int portIndex) override;

  private:
    int RowCount() const;
};
