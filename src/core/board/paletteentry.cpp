#include "paletteentry.h"

#include "panel.h"
#include "panelcell.h"
#include "panelfactory.h"

CPaletteEntry::CPaletteEntry(const QString& type, const QString& name, const QString& value)
    : m_type(type), m_value(value), m_prototype(CPanelFactory::Create(type))
{
    if (m_prototype)
        m_prototype->SetName(name);
}

CPaletteEntry::CPaletteEntry(CPaletteEntry&&) noexcept = default;
CPaletteEntry& CPaletteEntry::operator=(CPaletteEntry&&) noexcept = default;
CPaletteEntry::~CPaletteEntry() = default;

void CPaletteEntry::AddPort(const CPortEntry& port)
{
    if (m_prototype)
        m_prototype->PortList().Add(port);
}

void CPaletteEntry::SetWeight(int weight)
{
    if (m_prototype)
        m_prototype->SetWeight(weight);
}

std::unique_ptr<CPanelCell> CPaletteEntry::MakeCell() const
{
    if (!m_prototype)
        return nullptr;
    auto cell = std::make_unique<CPanelCell>(m_prototype->GetLine());
    if (CPanel* panel = cell->GetPanel()) {
        panel->CopyFrom(*m_prototype);
        cell->MakeImage();
    }
    return cell;
}
