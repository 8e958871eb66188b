#pragma once

#include "digitalpanel.h"

// A digital input: a push key ("KEY"), a toggle switch ("SW") or a plain input pin ("DGI").
class CSwitchPanel : public CDigitalPanel
{
  public:
    explicit CSwitchPanel(const QString& line = QString());

    QString GetComment(int i) const override;
    void AcceptProperties(const QStringList& tokens, int portIndex) override;

  protected:
    int BitmapFor(EPanelKind kind) const override;
};
