#pragma once

#include "avrboard.h"

#include "gridpos.h"

#include <QByteArray>
#include <QSet>
#include <QString>
#include <QStringList>

#include <array>

class CBoardInfo;
class CNetlist;
class CPanel;
class CPanelGrid;

// The program being written for one layout: the scan's five steps, the state of the
// storing panels, the set-up before the first scan and the parts of the run-time in use.
// Family writers add lines to it; it names the nets and renders BASE.h, BASE.c and
// BASE.cells, the cells file from which the size check writes the simulation map.
class CScanCode
{
  public:
    // The steps of a scan, in the order they run (docs/panels.md, "How a layout runs").
    enum EStep
    {
        Inputs,
        Show,
        Gates,
        Outputs,
        Update,
        StepCount
    };

    CScanCode(const CPanelGrid& grid, const CNetlist& netlist, const CBoardInfo& board);

    const CPanelGrid& Grid() const { return m_grid; }
    const CAvrBoard& Board() const { return m_board; }
    long Clock() const { return m_clock; }
    void SetClock(long clock) { m_clock = clock; }

    // The panel the next lines belong to; its name heads them as a comment.
    void Begin(const CPanel& panel, CGridPos pos);
    // The value of the net a pin reads: a net variable, or "0" for a pin on no driven net.
    QString In(CGridPos pos, int row, char side) const;
    // Drives the net of an output pin; a pin on no net, or on one nothing reads, drives
    // nothing.
    void Drive(EStep step, CGridPos pos, int row, char side, const QString& value);
    void Add(EStep step, const QString& line);
    // A static variable of the run-time type, named after the panel's order. An item names
    // the field the simulation map shows in the panel's top cell ("elapsed", "count",
    // "position").
    QString State(const QString& type, const QString& item = QString());
    // A text kept in flash, as the bytes the display shows.
    QString FlashText(const QByteArray& bytes);
    void Setup(const QString& line);
    // A line run after every scan, once however many panels ask for it.
    void AfterScan(const QString& line);
    void Use(const QString& feature);
    bool Uses(const QString& feature) const { return m_features.contains(feature); }

    QByteArray BaseHeader(const QString& layoutName) const;
    QByteArray BaseSource(const QString& layoutName) const;
    // One line a map entry, "CELL ITEM SYMBOL OFFSET BYTES", after a heading naming the
    // layout: every pin of every net the scan computes, then the items of the storing panels.
    QByteArray BaseCells(const QString& layoutName) const;

  private:
    // A storing panel's field the simulation map shows.
    struct CMappedState
    {
        CGridPos Cell;
        QString Item;
        QString Symbol;
        QString Type;
    };

    QString NetName(int net) const { return "n" + QString::number(net); }
    QList<int> ComputedNets() const;

    const CPanelGrid& m_grid;
    const CNetlist& m_netlist;
    CAvrBoard m_board;
    long m_clock = 0;
    QString m_panelName;
    CGridPos m_panelPos;
    int m_panelIndex = -1;
    std::array<int, StepCount> m_namedIn{-1, -1, -1, -1, -1};
    std::array<QStringList, StepCount> m_steps;
    QStringList m_declarations;
    QStringList m_setup;
    QStringList m_afterScan;
    QSet<QString> m_features;
    QList<int> m_driven;
    QList<CMappedState> m_mapped;
    int m_stateCount = 0;
    int m_textCount = 0;
};
