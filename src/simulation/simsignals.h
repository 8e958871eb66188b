#pragma once

#include "gridpos.h"
#include "simtarget.h"

#include <QList>
#include <QString>

class CBoardInfo;
class CPanelGrid;

// The layout's inputs and outputs as a person names them in a vectors file or on the
// command line: by the panel's own name ("start"), its cell ("I_05", "O_07"), or the pin
// ("PD2", or the board's label "D2"). Every pin of the board is a signal too.
class CSimSignals
{
  public:
    struct CSignal
    {
        QString Name; // the panel's name, else its cell; the port name for a bare pin
        QString Cell; // "I_05"; empty for a pin no panel uses
        QString Port; // "PD2"
        int Pin = -1; // the target's pin number
        bool Input = false;
        int Channel = -1; // an analog input's channel
    };

    CSimSignals(const CPanelGrid& grid, const CBoardInfo& board, const CSimTarget& target);

    // The signal a name means; null when none does.
    const CSignal* Find(const QString& name) const;
    // The input and output panels that have one pin, in grid order (inputs first), then
    // every pin of the board that no such panel uses.
    const QList<CSignal>& All() const { return m_signals; }
    // The panels of the output column among them.
    QList<const CSignal*> Outputs() const;

  private:
    QList<CSignal> m_signals;
    QList<QPair<QString, QString>> m_aliases; // board label -> port name
};
