// Any text as a panel definition line: every operation a layout load, the editor and the
// build apply to a panel must hold.
#include "panel.h"
#include "panelcell.h"

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
    panel->Rotate();
    // A line written reads back as itself.
    const CPanelCell again(panel->GetLine());
    if (!again.GetPanel() || again.GetPanel()->GetLine() != panel->GetLine())
        std::abort();
    return 0;
}
