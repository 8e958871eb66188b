#include "avrlayoutcheck.h"

#include "avrboard.h"
#include "avrcodegenerator.h"
#include "avrwave.h"
#include "gridorder.h"
#include "panelname.h"

#include "boardinfo.h"
#include "netlist.h"
#include "panelgrid.h"
#include "panelpins.h"
#include "panelvalues.h"
#include "stringtable.h"

#include <QMap>

namespace {

const CPanel& PanelAt(const CPanelGrid& grid, CGridPos pos)
{
    return *grid.GetCell(pos)->GetPanel();
}

bool IsIncomplete(const CPanel& panel)
{
    return (panel.NeedsProperties() && panel.IsIncomplete()) ||
           CPanelPins::BehaviourOf(panel) == CPanelPins::None;
}

// The wave frequencies a timer output needs: the PWM's one, each tone of the buzzer.
QList<int> FrequenciesOf(const CPanel& panel)
{
    const QStringList tokens = panel.GetTokens();
    if (tokens.value(0) == u"PWM")
        return {LeadingInt(tokens.value(1))};
    QList<int> tones;
    for (qsizetype i = 2; i < tokens.size() && !tokens[i].startsWith(u';'); ++i)
        tones.append(LeadingInt(tokens[i]));
    return tones;
}

} // namespace

CAvrLayoutCheck::CAvrLayoutCheck(const CPanelGrid& grid, const CNetlist& netlist,
                                 const CBoardInfo& board, long clock)
    : m_grid(grid), m_netlist(netlist), m_board(board), m_clock(clock)
{
}

QStringList CAvrLayoutCheck::Run() const
{
    QStringList faults;
    CheckPanels(faults);
    CheckWiring(faults);
    CheckPins(faults);
    CheckTimers(faults);
    return faults;
}

bool CAvrLayoutCheck::IsOffered(const QString& keyword) const
{
    // The untyped decoders work in the display's type: they come with the display.
    if (keyword == u"7S_" || keyword == u"7S4_")
        return m_board.FindEntry("7SEG") || m_board.FindEntry("7SEG4");
    return m_board.FindEntry(keyword) != nullptr;
}

void CAvrLayoutCheck::CheckPanels(QStringList& faults) const
{
    const CAvrBoard pins(m_board);
    for (const CGridPos pos : CGridOrder::Panels(m_grid)) {
        const CPanel& panel = PanelAt(m_grid, pos);
        const QString keyword = panel.GetTokens().value(0);
        const QString name = CPanelName::Of(panel, pos);
        if (IsIncomplete(panel))
            faults.append(CStringTable::Format(Ids::PanelcNoProperties, {name}));
        else if (!CAvrCodeGenerator::Supports(keyword) || !IsOffered(keyword))
            faults.append(CStringTable::Format(Ids::PanelcNotOnBoard, {name}));
        else if (!pins.PinsOf(panel))
            faults.append(CStringTable::Format(Ids::PanelcNoPort, {name}));
    }
}

void CAvrLayoutCheck::CheckWiring(QStringList& faults) const
{
    for (const CNetFault& fault : m_netlist.GetFaults()) {
        QStringList names;
        for (const CGridPos pos : fault.Panels)
            names.append(CPanelName::At(m_grid, pos));
        faults.append(CStringTable::Format(
            fault.Kind == CNetFault::TwoDrivers ? Ids::PanelcTwoDrivers : Ids::PanelcLoop,
            {CPanelName::List(names)}));
    }
}

void CAvrLayoutCheck::CheckPins(QStringList& faults) const
{
    const CAvrBoard pins(m_board);
    // The displays on fixed pins are named first: their pins cannot move, the others can.
    QMap<int, QStringList> fixedOwners, owners;
    for (const CGridPos pos : CGridOrder::Panels(m_grid)) {
        const CPanel& panel = PanelAt(m_grid, pos);
        const QString keyword = panel.GetTokens().value(0);
        const std::optional<QList<int>> used = pins.PinsOf(panel);
        if (IsIncomplete(panel) || !used)
            continue;
        const bool lcd = keyword == u"LCD", display = keyword.startsWith(u"7SEG");
        const QString owner = lcd       ? CStringTable::Get(Ids::PanelcTheLcd)
                              : display ? CStringTable::Get(Ids::PanelcTheSevenSeg)
                                        : CPanelName::Of(panel, pos);
        for (const int pin : *used)
            (lcd || display ? fixedOwners : owners)[pin].append(owner);
    }
    for (int pin = 0; pin < 20; ++pin) {
        const QStringList all = fixedOwners.value(pin) + owners.value(pin);
        for (qsizetype i = 1; i < all.size(); ++i)
            faults.append(
                CStringTable::Format(Ids::PanelcPortTwice, {pins.PortName(pin), all[0], all[i]}));
    }
}

void CAvrLayoutCheck::CheckTimers(QStringList& faults) const
{
    const CAvrBoard pins(m_board);
    QStringList timerPorts;
    for (const int pin : CAvrBoard::TimerPins())
        timerPorts.append(pins.PortName(pin));
    QMap<int, QString> userOfTimer;
    for (const CGridPos pos : CGridOrder::Panels(m_grid)) {
        const CPanel& panel = PanelAt(m_grid, pos);
        const QString keyword = panel.GetTokens().value(0);
        if ((keyword != u"PWM" && keyword != u"BUZZ") || IsIncomplete(panel) || !pins.PinsOf(panel))
            continue;
        const QString port = CAvrBoard::PortOf(panel);
        const int timer = CAvrBoard::TimerOf(pins.Header(port));
        const QString name = CPanelName::Of(panel, pos);
        if (timer == 0) {
            faults.append(CStringTable::Format(Ids::PanelcNoTimer, {name, timerPorts.join(", ")}));
            continue;
        }
        if (userOfTimer.contains(timer))
            faults.append(CStringTable::Format(Ids::PanelcSharedTimer, {userOfTimer[timer], name}));
        else
            userOfTimer.insert(timer, name);
        for (const int frequency : FrequenciesOf(panel))
            if (!CAvrWave::For(timer, m_clock, frequency))
                faults.append(CStringTable::Format(Ids::PanelcFrequency, {name, frequency, port}));
    }
}
