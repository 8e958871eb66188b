#pragma once

#include "panelstatesource.h"
#include "simmap.h"
#include "simtarget.h"

#include <QString>

#include <atomic>
#include <functional>
#include <mutex>

class CAvrSimulator;

// A board that is not there: the simulated processor with the board's boot loader, its
// serial line on a pseudo-terminal, at real time. A program that opens the line resets it
// into the boot loader, as the line's DTR does on the real board, so the board's own writer
// can write a program into it; the program then runs. It is a state source too: given the
// map of the program written, the editor animates the grid from it. Unix only.
class CVirtualBoard : public CStateExchange
{
  public:
    ~CVirtualBoard() { Close(); }

    // Starts the board: false, with why, when the boot loader or the terminal cannot be had.
    bool Open(const CSimTarget& target, const QString& bootLoaderHex, quint32 bootAddress,
              QString& why);
    // The line's device, such as /dev/pts/3.
    const QString& Port() const { return m_port; }
    // Runs until stop holds or forMs have passed (negative: no end); changed(ms, pin, level)
    // hears each change of an output pin. A program that runs wild stops the board until
    // the line is opened again. False when the boot loader cannot be loaded.
    bool Run(const std::atomic<bool>& stop, double forMs,
             const std::function<void(double, int, bool)>& changed, QString& why);
    void Close();

    // Where the program now in the FLASH keeps its panels' state (from any thread).
    void SetMap(const CSimMap& map);

  private:
    int m_master = -1;
    QString m_port;
    CSimTarget m_target;
    QString m_bootLoader;
    quint32 m_bootAddress = 0;

    mutable std::mutex m_mapLock;
    CSimMap m_map;
};
