#pragma once

#include "panel.h"
#include "panelfactory.h"

#include <gtest/gtest.h>

#include <memory>

// A panel made the way a layout load makes it: by keyword, given the board's ports for its
// type, then handed its line.
inline std::unique_ptr<CPanel> MakePanel(const QString& line, const QStringList& ports = {})
{
    std::unique_ptr<CPanel> panel = CPanelFactory::Create(line);
    if (!panel)
        return panel;
    for (const QString& port : ports)
        panel->PortList().Add({port, port, QString()});
    panel->SetLine(line);
    return panel;
}

// Stands in for the editor's dialogs: it records which dialog was asked for and, when
// told to answer OK, hands the prepared tokens back as the dialog's OK would.
class CFakeEditor : public IPropertyEditor
{
  public:
    bool Edit(CPanel& panel, EPanelDialog dialog) override
    {
        Asked = dialog;
        if (Ok)
            panel.AcceptProperties(Tokens, PortIndex);
        return Ok;
    }

    EPanelDialog Asked = EPanelDialog::None;
    bool Ok = true;
    QStringList Tokens;
    int PortIndex = -1;
};

// Readable failures for Qt strings.
inline void PrintTo(const QString& s, std::ostream* os)
{
    *os << '"' << s.toStdString() << '"';
}

inline void PrintTo(const QStringList& list, std::ostream* os)
{
    *os << '[' << list.join(QStringLiteral("|")).toStdString() << ']';
}

#define TAB "\t"
