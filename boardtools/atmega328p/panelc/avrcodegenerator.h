#pragma once

#include "scancode.h"

#include <QByteArray>
#include <QString>

class CBoardInfo;
class CNetlist;
class CPanelGrid;

// Writes the program of a layout the check passed: BASE.h with the clock and the parts of
// the run-time in use, BASE.c with one scan that runs the panels in the steps of
// docs/panels.md, BASE.cells with the places of the nets and states in it. Each family's writer
// says what its panels do; this class only walks the grid and the netlist's evaluation order.
class CAvrCodeGenerator
{
  public:
    CAvrCodeGenerator(const CPanelGrid& grid, const CNetlist& netlist, const CBoardInfo& board,
                      long clock);

    // A keyword the generator can write code for (wires and jumps included).
    static bool Supports(const QString& keyword);

    QByteArray BaseHeader(const QString& layoutName) const { return m_code.BaseHeader(layoutName); }
    QByteArray BaseSource(const QString& layoutName) const { return m_code.BaseSource(layoutName); }
    QByteArray BaseCells(const QString& layoutName) const { return m_code.BaseCells(layoutName); }

  private:
    void Generate(const CNetlist& netlist);

    const CPanelGrid& m_grid;
    CScanCode m_code;
};
