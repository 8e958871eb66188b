#include "avrcodegenerator.h"

#include "gatewriter.h"
#include "gridorder.h"
#include "inputwriter.h"
#include "outputwriter.h"
#include "sevensegwriter.h"
#include "storingwriter.h"

#include "netlist.h"
#include "panel.h"
#include "panelgrid.h"

namespace {

// The writers by family.
struct CWriter
{
    bool (*Handles)(const QString& keyword);
    void (*Write)(const CPanel& panel, CGridPos pos, CScanCode& code);
};

constexpr CWriter kWriters[] = {
    {CInputWriter::Handles, CInputWriter::Write},
    {CStoringWriter::Handles, CStoringWriter::Write},
    {COutputWriter::Handles, COutputWriter::Write},
    {CSevenSegWriter::Handles, CSevenSegWriter::Write},
};

// Wires and jumps are only nets; the serial bits are read by the serial sender.
bool WritesNothing(const QString& keyword)
{
    return keyword == u"LINE" || keyword == u"JPI" || keyword == u"JPO" || keyword == u"UART";
}

} // namespace

CAvrCodeGenerator::CAvrCodeGenerator(const CPanelGrid& grid, const CNetlist& netlist,
                                     const CBoardInfo& board, long clock)
    : m_grid(grid), m_code(grid, netlist, board)
{
    m_code.SetClock(clock);
    Generate(netlist);
}

bool CAvrCodeGenerator::Supports(const QString& keyword)
{
    if (WritesNothing(keyword) || CGateWriter::Handles(keyword))
        return true;
    for (const CWriter& writer : kWriters)
        if (writer.Handles(keyword))
            return true;
    return false;
}

void CAvrCodeGenerator::Generate(const CNetlist& netlist)
{
    for (const CGridPos pos : CGridOrder::Panels(m_grid)) {
        const CPanel& panel = *m_grid.GetCell(pos)->GetPanel();
        const QString keyword = panel.GetTokens().value(0);
        m_code.Begin(panel, pos);
        for (const CWriter& writer : kWriters)
            if (writer.Handles(keyword)) {
                writer.Write(panel, pos, m_code);
                break;
            }
    }
    // Gates run in the netlist's order, each after the gates that feed it.
    for (const CGridPos pos : netlist.GetEvaluationOrder()) {
        const CPanel& panel = *m_grid.GetCell(pos)->GetPanel();
        m_code.Begin(panel, pos);
        CGateWriter::Write(panel, pos, m_code);
    }
}
