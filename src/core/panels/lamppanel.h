#pragma once

#include "digitalpanel.h"

// A digital output: a lamp ("LAMP") or a plain output pin ("DGO"). Its picture shows the
// name where the switch shows its port.
class CLampPanel : public CDigitalPanel
{
  public:
    explicit CLampPanel(const QString& line = QString());

    QString GetPortName(int i) const override;
    QString GetComment(int i) const override;

  protected:
    int BitmapFor(EPanelKind kind) const override;
};
