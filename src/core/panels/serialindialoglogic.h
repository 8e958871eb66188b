#pragma once

#include "portlist.h"

#include <QStringList>

// What the receive panel's "UART Setting" dialog does with its tokens: compare mode with up
// to ten byte values, or bit mode with a bit count.
class CSerialInDialogLogic
{
  public:
    enum EMode
    {
        NoMode,
        Compare,
        Bit
    };
    static constexpr int kValueFields = 10;

    CSerialInDialogLogic(const QStringList& tokens, const CPortList& ports);

    static QStringList BitCounts();

    // The value field to select, -1 when there is none.
    int WrongField() const;
    bool IsNameValid() const;
    bool IsOkEnabled() const;
    QStringList Tokens() const;

    QString Name;
    QStringList Ports;
    int Port = -1;
    EMode Mode = NoMode;
    QStringList Values; // always kValueFields texts
    int BitCount = -1;  // index in BitCounts()
};
