// Any text as a panel definition line: every operation a layout load, the editor and the
// build apply to a panel must hold.
#include "panelcell.h"
#include "panel.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QString line = QString::fromUtf8(reinterpret_cast<const char*>(data), qsizetype(size));
    CPanelCell cell(line);
    CPanel* panel = cell.GetPanel();
    if (!panel)
        return 0;
    panel->PortList().Add({QStringLiteral("1"), QStringLiteral("P1"), QStringLiteral("D1")});
    panel->SetLine(line);
    for (int i = -1; i < panel->GetItemCount() + 2; ++i) {
        panel->GetPortName(i);
        panel->GetComment(i);
    }
    panel->GetCaption();
    panel->IsIncomplete();
    panel->GetMode();
    panel->GetPortText();
    cell.MakeImage();
    panel->GetAuxValue();
    // Writing and reading settle: a line read back and written again stays as it is.
    // (One pass may still normalise, e.g. a jump line whose empty id is dropped on reading.)
    const CPanelCell once(cell);
    if (!once.GetPanel())
        return 0;
    const CPanelCell twice(once);
    const CPanelCell thrice(twice);
    if (twice.GetPanel() && thrice.GetPanel() &&
        twice.GetPanel()->GetLine() != thrice.GetPanel()->GetLine())
        std::abort();
    return 0;
}
